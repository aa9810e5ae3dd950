#include "cli/doctor/FontFolders.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace wardlock::cli {

namespace fs = std::filesystem;

namespace {

constexpr int mostEntries = 50'000;

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Returns true for "Inter-Bold" and "Inter" of the family "Inter", and false for "Interstate".
bool isOfFamily(const fs::path& file, std::string_view family) {
    static constexpr std::array types{".otf", ".ttf", ".ttc"};
    const std::string type = file.extension().string();
    const std::string stem = file.stem().string();
    return (type == types[0] || type == types[1] || type == types[2]) && stem.starts_with(family) &&
           (stem.size() == family.size() || !isLetter(stem[family.size()]));
}

void addBelow(const char* variable, const char* folder, std::vector<std::string>& folders) {
    if (const char* value = std::getenv(variable); value && *value == '/')
        folders.push_back(std::string(value) + folder);
}

} // namespace

std::vector<std::string> fontFolders() {
    std::vector<std::string> folders{"/usr/share/fonts", "/usr/local/share/fonts"};
    addBelow("XDG_DATA_HOME", "/fonts", folders);
    addBelow("HOME", "/.local/share/fonts", folders);
    addBelow("HOME", "/.fonts", folders);
    return folders;
}

std::string fontFile(std::string_view family, const std::vector<std::string>& folders) {
    int left = mostEntries;
    for (const std::string& folder : folders) {
        std::error_code error;
        const auto options = fs::directory_options::skip_permission_denied;
        fs::recursive_directory_iterator it(folder, options, error);
        for (const fs::recursive_directory_iterator end; !error && it != end && left > 0; it.increment(error))
            if (--left; isOfFamily(it->path(), family))
                return it->path().string();
    }
    return {};
}

} // namespace wardlock::cli
