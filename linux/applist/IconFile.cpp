#include "linux/applist/IconFile.h"

#include "platform/files/FileSystem.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace platform::applist {
namespace {

constexpr std::size_t largestFile = 2u << 20;
constexpr std::uint32_t largestSide = 2048;
/// How far into a file the root element of an SVG may be, after declarations and comments.
constexpr std::size_t svgBeginning = 4096;

std::uint32_t bigEndian(std::string_view bytes, std::size_t position) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number = (number << 8) | static_cast<unsigned char>(bytes[position + i]);
    return number;
}

/// A header chunk must come first. The device's own optimised form begins with another one, and only the
/// device decodes it.
std::optional<IconFile> png(std::string_view bytes) {
    constexpr std::size_t headerEnd = 24;
    if (bytes.size() < headerEnd || bytes.substr(12, 4) != "IHDR")
        return std::nullopt;
    const std::uint32_t width = bigEndian(bytes, 16);
    const std::uint32_t height = bigEndian(bytes, 20);
    if (width == 0 || height == 0 || std::max(width, height) > largestSide)
        return std::nullopt;
    return IconFile{static_cast<int>(std::max(width, height))};
}

} // namespace

std::optional<IconFile> IconFile::read(const std::string& path) {
    std::string bytes;
    if (FileSystem::current().readFile(path, largestFile, bytes))
        return std::nullopt;
    const std::string_view view = bytes;
    if (view.starts_with("\x89PNG\r\n\x1a\n"))
        return png(view);
    if (view.starts_with("\xff\xd8\xff"))
        return IconFile{};
    if (view.substr(0, svgBeginning).find("<svg") != std::string_view::npos)
        return IconFile{};
    return std::nullopt;
}

} // namespace platform::applist
