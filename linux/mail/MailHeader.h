#pragma once

#include <string>
#include <string_view>

namespace platform::mail {

/// "Name: text" with CRLF, the text as it is where it is ASCII and else in encoded words, in lines of at most
/// 76 characters. Line feeds and other control characters become blanks, so that no text can add a header.
std::string mailHeader(std::string_view name, std::string_view text);

/// The same for a list of addresses: the name before a "<...>" is encoded, the address itself never.
std::string mailAddressHeader(std::string_view name, std::string_view addresses);

/// `; filename="..."`, or the extended form where the name is not ASCII.
std::string mailFileNameParameter(std::string_view parameter, std::string_view fileName);

/// The text without control characters.
std::string withoutControls(std::string_view text);

} // namespace platform::mail
