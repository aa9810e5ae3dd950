#include "platform/foundation/StringFile.h"

#include "platform/foundation/Utf8.h"

#include <filesystem>
#include <fstream>

namespace platform {
namespace {

constexpr std::uintmax_t LargestText = 16u << 20;

} // namespace

std::optional<std::string> stringWithContentsOfFile(std::string_view path) {
    // Only a regular file: opening a pipe would wait for its other end.
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > LargestText)
        return std::nullopt;
    std::ifstream file(std::string(path), std::ios::binary);
    std::string text(size, '\0');
    if (!file.read(text.data(), static_cast<std::streamsize>(size)) || !isValidUtf8(text))
        return std::nullopt;
    return text;
}

} // namespace platform
