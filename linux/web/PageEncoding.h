#pragma once

#include <string>
#include <string_view>

namespace platform::web {

/// Returns the text of a page as UTF-8. Its encoding is the first that one of these names: its byte-order
/// mark, its content type, its own <meta>. Without a name it is UTF-8 where the bytes are valid, else
/// windows-1252. A label unknown to the web names none. Bytes that are invalid in the encoding become U+FFFD.
std::string decodedPage(std::string_view bytes, std::string_view contentType);

/// The same for plain text, which has no <meta>.
std::string decodedText(std::string_view bytes, std::string_view contentType);

} // namespace platform::web
