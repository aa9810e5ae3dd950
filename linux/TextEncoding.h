#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The text of a page as UTF-8. The encoding is the one its byte-order mark, its content type or its own
/// <meta> names, in this order; without any UTF-8 where it is that, else Western European. Bytes that the
/// encoding does not have become U+FFFD.
std::string decodedPage(std::string_view bytes, std::string_view contentType);

} // namespace platform
