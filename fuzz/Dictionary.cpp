#include "fuzz/Dictionary.h"

#include <charconv>
#include <sstream>

namespace wardlock::fuzz {

namespace {

std::string unescaped(const std::string& text) {
    std::string word;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\\' || at + 1 == text.size()) {
            word += text[at];
            continue;
        }
        unsigned code = 0;
        const char* const digits = text.data() + at + 2;
        if (text[at + 1] == 'x' && at + 3 < text.size() &&
            std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
            word += static_cast<char>(code);
            at += 3;
        } else {
            word += text[++at];
        }
    }
    return word;
}

} // namespace

std::vector<std::string> wordsOf(const std::string& dictionary) {
    std::vector<std::string> words;
    std::istringstream lines(dictionary);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t first = line.find('"');
        const std::size_t last = line.rfind('"');
        if (!line.starts_with('#') && first < last && last != std::string::npos)
            words.push_back(unescaped(line.substr(first + 1, last - first - 1)));
    }
    return words;
}

} // namespace wardlock::fuzz
