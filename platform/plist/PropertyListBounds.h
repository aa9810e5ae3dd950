#pragma once

#include <cstddef>

namespace platform {

/// The bounds of a property list that is to be read again.

/// Containers inside each other, the outermost one included. propertyListWithData() reads no more, and
/// documentWithPropertyList() writes no more.
inline constexpr std::size_t deepestPropertyList = 512;

/// Bytes of a file. A document has a few kilobytes; the bound keeps a log or an image in its place out of the
/// memory. Callers of propertyListWithData() read no larger file, and documentWithPropertyList() writes none.
/// That bounds the number of values as well: each takes some bytes of XML. The binary form can name a value
/// many times; its reader bounds what the value would take as XML.
inline constexpr std::size_t largestDocument = std::size_t(16) << 20;

} // namespace platform
