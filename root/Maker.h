#pragma once

/// How the maker can be reached.

#include <string_view>

namespace wardlock {

inline constexpr std::string_view supportAddress = "support@tavix.example";
inline constexpr std::string_view profileName = "@TavixCo";
inline constexpr std::string_view profileURL = "twitter://user?screen_name=TavixCo";

} // namespace wardlock
