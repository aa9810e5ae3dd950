#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::test {

/// A kind of command that the pages show and no test does: a row of the table in docs/contributing.md, which
/// is where readers find why.
struct Untested {
    std::size_t line = 0;
    /// The words such a command begins with.
    std::string beginning;
    std::string reason;

    bool covers(const std::string& command) const;
};

inline constexpr const char* untestedPage = "docs/contributing.md";

std::vector<Untested> untestedCommands();
bool isUntested(const std::string& command);

} // namespace wardlock::test
