#pragma once

#include <string>
#include <string_view>

namespace platform::web {

/// Returns the scheme of a URL in lower case; empty when it has no valid one.
std::string schemeOf(std::string_view url);

/// Returns whether a program is registered for URLs of the scheme, so that a desktop would open them. Any
/// thread. May wait for seconds, bounded; that a program was found is remembered for half a minute.
bool schemeHasHandler(const std::string& scheme);

/// Returns whether there is a display on which a program could show itself.
bool hasDisplay();

} // namespace platform::web
