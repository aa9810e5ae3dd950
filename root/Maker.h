#pragma once

/// How the maker can be reached.

#include <string_view>

namespace wardlock {

inline constexpr std::string_view SupportAddress = "support@tavix.example";
inline constexpr std::string_view ProfileName = "@TavixCo";
inline constexpr std::string_view ProfileURL = "twitter://user?screen_name=TavixCo";

} // namespace wardlock
