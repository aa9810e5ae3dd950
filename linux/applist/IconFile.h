#pragma once

#include <optional>
#include <string>

namespace platform::applist {

/// What the beginning of an image's file documents.
struct IconFile {
    /// The larger of width and height in pixels. 0 where the image has no size of its own (SVG), or its
    /// beginning does not contain it (JPEG).
    int pixels = 0;

    /// Reads the image in a regular file. Returns nothing for a file or an image that is too large, and for a
    /// format that the front ends cannot decode.
    static std::optional<IconFile> read(const std::string& path);
};

} // namespace platform::applist
