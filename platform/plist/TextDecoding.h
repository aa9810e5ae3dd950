#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

enum class ByteOrder { Little, Big };

/// The UTF-16 text as UTF-8; none for half a unit and for a surrogate without its other half.
std::optional<std::string> utf8FromUtf16(std::string_view bytes, ByteOrder order);

/// An XML document's bytes as UTF-8 without a byte-order mark: by its mark, by the encoding its declaration
/// names (UTF-8, US-ASCII, ISO-8859-1, windows-1252, UTF-16, UTF-32), else UTF-8. The result is a part of
/// `bytes`, or of `storage` where they had to be converted. None for bytes that are not what they say, and
/// for an encoding of another name or of an empty one.
std::optional<std::string_view> xmlAsUtf8(std::string_view bytes, std::string& storage);

} // namespace platform
