#include "tests/system/documentation/Pattern.h"

#include <stdexcept>

namespace wardlock::test {
namespace {

std::string partOf(const std::string& text, std::size_t start, const regmatch_t& part) {
    if (part.rm_so < 0)
        return {};
    return text.substr(start + static_cast<std::size_t>(part.rm_so),
                       static_cast<std::size_t>(part.rm_eo - part.rm_so));
}

} // namespace

Pattern::Pattern(const char* expression) {
    if (regcomp(&compiled_, expression, REG_EXTENDED) != 0)
        throw std::invalid_argument(expression);
}

Pattern::~Pattern() {
    regfree(&compiled_);
}

/// The parts of the first match, relative to the start; nothing when there is none.
std::vector<regmatch_t> Pattern::findFrom(const std::string& text, std::size_t start) const {
    std::vector<regmatch_t> parts(compiled_.re_nsub + 1);
    if (regexec(&compiled_, text.c_str() + start, parts.size(), parts.data(), start > 0 ? REG_NOTBOL : 0) !=
        0)
        parts.clear();
    return parts;
}

std::optional<Pattern::Match> Pattern::matchOf(const std::string& text) const {
    const auto parts = findFrom(text, 0);
    if (parts.empty() || parts[0].rm_so != 0 || static_cast<std::size_t>(parts[0].rm_eo) != text.size())
        return std::nullopt;
    Match match;
    for (const regmatch_t& part : parts)
        match.push_back(partOf(text, 0, part));
    return match;
}

std::vector<Pattern::Match> Pattern::matchesIn(const std::string& text) const {
    std::vector<Match> matches;
    std::size_t start = 0;
    for (auto parts = findFrom(text, start); !parts.empty() && parts[0].rm_eo > parts[0].rm_so;
         parts = findFrom(text, start)) {
        Match& match = matches.emplace_back();
        for (const regmatch_t& part : parts)
            match.push_back(partOf(text, start, part));
        start += static_cast<std::size_t>(parts[0].rm_eo);
    }
    return matches;
}

std::string Pattern::replacedIn(const std::string& text, const std::string& replacement) const {
    std::string replaced;
    std::size_t start = 0;
    for (auto parts = findFrom(text, start); !parts.empty() && parts[0].rm_eo > parts[0].rm_so;
         parts = findFrom(text, start)) {
        replaced.append(text, start, static_cast<std::size_t>(parts[0].rm_so)).append(replacement);
        start += static_cast<std::size_t>(parts[0].rm_eo);
    }
    return replaced.append(text, start);
}

std::vector<std::string> codeIn(const std::string& text) {
    static const Pattern code("`([^`]+)`");
    std::vector<std::string> pieces;
    for (const Pattern::Match& match : code.matchesIn(text))
        pieces.push_back(match[1]);
    return pieces;
}

} // namespace wardlock::test
