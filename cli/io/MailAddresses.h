#pragma once

#include <string>
#include <vector>

namespace wardlock::cli {

/// Returns the addresses of a typed text, which separates them by commas.
std::vector<std::string> addressesIn(const std::string& text);
/// Returns the addresses as one text, separated by commas.
std::string joinedAddresses(const std::vector<std::string>& addresses);

} // namespace wardlock::cli
