#include "platform/files/StringFile.h"

#include "platform/base/Utf8.h"
#include "platform/files/FileSystem.h"

namespace platform {
namespace {

constexpr std::size_t largestText = 16u << 20;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

} // namespace

std::optional<std::string> stringWithContentsOfFile(std::string_view path) {
    std::string text;
    const std::error_code error = FileSystem::current().readFile(std::string(path), largestText, text);
    if (error || !isValidUtf8(text))
        return std::nullopt;
    if (text.starts_with(byteOrderMark))
        text.erase(0, byteOrderMark.size());
    return text;
}

} // namespace platform
