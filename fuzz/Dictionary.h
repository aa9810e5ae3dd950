#pragma once

#include <string>
#include <vector>

namespace wardlock::fuzz {

/// Returns the words of a libFuzzer dictionary: a text in double quotes a line, with \\, \" and \xHH.
/// Comments and lines of another form are skipped.
std::vector<std::string> wordsOf(const std::string& dictionary);

} // namespace wardlock::fuzz
