#pragma once

#include <cstddef>

namespace platform {

/// What a property list may be. A reader refuses more, so a writer whose result has to be read again does,
/// too.

/// Containers inside each other, the outermost one included.
inline constexpr std::size_t deepestPropertyList = 512;

/// A document holds a few kilobytes. The bound on a file, in bytes, keeps a log or an image in its place out
/// of the memory. It bounds the number of values as well: each takes some bytes of XML.
inline constexpr std::size_t largestDocument = std::size_t(16) << 20;

} // namespace platform
