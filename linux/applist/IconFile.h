#pragma once

#include <optional>
#include <string>

namespace platform::applist {

/// What the beginning of a picture's file says of it.
struct IconFile {
    /// Larger of width and height in pixels; 0 where the picture has no size of its own (SVG), or does not
    /// tell it at its beginning (JPEG).
    int pixels = 0;

    /// The picture in a regular file; none when it is too large a file, too large a picture, or none that
    /// those who show icons can decode.
    static std::optional<IconFile> look(const std::string& path);
};

} // namespace platform::applist
