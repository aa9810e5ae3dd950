#pragma once

#include <cstddef>

namespace platform {

/// The bounds of a property list. A reader refuses more, so a writer whose result has to be read again does
/// too.

/// Containers inside each other, the outermost one included.
inline constexpr std::size_t deepestPropertyList = 512;

/// Bytes. A document has a few kilobytes; the bound keeps a log or an image in its place out of the memory.
/// It bounds the number of values as well: each takes some bytes of XML.
inline constexpr std::size_t largestDocument = std::size_t(16) << 20;

} // namespace platform
