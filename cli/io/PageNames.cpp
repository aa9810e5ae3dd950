#include "cli/io/PageNames.h"

namespace wardlock::cli {

std::string withPagesIn(std::string_view folder, std::string_view text) {
    constexpr std::string_view inSource = "docs/";
    std::string result(text);
    if (folder.empty())
        return result;
    const std::string found = std::string(folder) + '/';
    for (auto at = result.find(inSource); at != std::string::npos;
         at = result.find(inSource, at + found.size()))
        result.replace(at, inSource.size(), found);
    return result;
}

} // namespace wardlock::cli
