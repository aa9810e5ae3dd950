#pragma once

#include <string>
#include <vector>

namespace wardlock::fuzz {

/// The words of a libFuzzer dictionary: a text in double quotes a line, with \\, \" and \xHH. Lines of
/// another form are skipped, as remarks are.
std::vector<std::string> wordsOf(const std::string& dictionary);

} // namespace wardlock::fuzz
