#pragma once

#include <optional>
#include <regex.h>
#include <string>
#include <vector>

namespace wardlock::test {

/// An extended regular expression of POSIX. std::regex costs seconds in each source that includes it, and
/// again in each test process, which is not optimised.
class Pattern {
public:
    /// The whole match, followed by the groups.
    using Match = std::vector<std::string>;

    explicit Pattern(const char* expression);
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;
    ~Pattern();

    /// None unless the whole text matches.
    std::optional<Match> matchOf(const std::string& text) const;
    /// The matches from left to right, without overlaps and empty ones.
    std::vector<Match> matchesIn(const std::string& text) const;
    /// The text with each match replaced.
    std::string replacedIn(const std::string& text, const std::string& replacement) const;

private:
    std::vector<regmatch_t> findFrom(const std::string& text, std::size_t start) const;

    regex_t compiled_{};
};

/// The pieces of code in a sentence or a cell, without their backquotes.
std::vector<std::string> codeIn(const std::string& text);

} // namespace wardlock::test
