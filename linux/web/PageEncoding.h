#pragma once

#include <string>
#include <string_view>

namespace platform::web {

/// The text of a page as UTF-8. Its encoding is the one that its byte-order mark, its content type or its own
/// <meta> names, in this order; without any UTF-8 where the bytes are that, else windows-1252. A label that
/// the web does not have names none. Bytes that the encoding does not have become U+FFFD.
std::string decodedPage(std::string_view bytes, std::string_view contentType);

/// The same for plain text, which has no <meta>.
std::string decodedText(std::string_view bytes, std::string_view contentType);

} // namespace platform::web
