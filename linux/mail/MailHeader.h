#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform::mail {

/// Returns "Name: text" with CRLF in lines of at most 76 characters. ASCII text stays as it is; other text
/// becomes encoded words. Line feeds and other control characters become blanks, so that no text can add a
/// header.
std::string mailHeader(std::string_view name, std::string_view text);

/// The same for a list of addresses: the name before a "<...>" is encoded or quoted as a whole, the address
/// itself never.
std::string mailAddressHeader(std::string_view name, const std::vector<std::string>& addresses);

/// Returns `; filename="..."`, or the extended form where the name is not ASCII.
std::string mailFileNameParameter(std::string_view parameter, std::string_view fileName);

/// Returns the text without control characters.
std::string withoutControls(std::string_view text);

} // namespace platform::mail
