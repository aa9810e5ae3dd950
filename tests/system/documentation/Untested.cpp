#include "tests/system/documentation/Untested.h"

#include "tests/system/documentation/Page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

namespace wardlock::test {

bool Untested::covers(const std::string& command) const {
    return command.starts_with(beginning) &&
           (command.size() == beginning.size() || command[beginning.size()] == ' ');
}

std::vector<Untested> untestedCommands() {
    std::vector<Untested> found;
    for (const TableRow& row : Page(untestedPage).tableBelow("Commands that no test runs")) {
        if (row.cells.size() != 2) {
            ADD_FAILURE() << untestedPage << ':' << row.line << ": not a command and a reason";
            continue;
        }
        static const std::regex code("`([^`]+)`");
        const std::string& commands = row.cells[0];
        for (std::sregex_iterator match(commands.begin(), commands.end(), code), end; match != end; ++match)
            found.push_back({row.line, (*match)[1], row.cells[1]});
    }
    return found;
}

bool isUntested(const std::string& command) {
    return std::ranges::any_of(untestedCommands(),
                               [&](const Untested& untested) { return untested.covers(command); });
}

} // namespace wardlock::test
