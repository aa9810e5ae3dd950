#pragma once

#include <string_view>

namespace platform::web {

/// Returns iconv's name of the encoding that a page's or a server's label means on the web, "latin1" and 200
/// others. Null for any other label: iconv itself knows many that browsers refuse, UTF-7 among them.
const char* encodingOf(std::string_view label);

} // namespace platform::web
