#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

enum class ByteOrder { Little, Big };

/// Converts UTF-16 to UTF-8; returns nothing for half a unit and for a surrogate without its other half.
std::optional<std::string> utf8FromUtf16(std::string_view bytes, ByteOrder order);

/// Returns an XML document's bytes as UTF-8 without a byte-order mark. The encoding is that of the mark, else
/// the declared one (UTF-8, US-ASCII, ISO-8859-1, windows-1252, UTF-16, UTF-32), else UTF-8.
///
/// The result is a part of `bytes`, or of `storage` where they had to be converted. Returns nothing for bytes
/// that contradict their encoding, and for an encoding with another name or an empty one.
std::optional<std::string_view> xmlAsUtf8(std::string_view bytes, std::string& storage);

} // namespace platform
