#include "tests/system/documentation/Untested.h"

#include "tests/system/documentation/Page.h"
#include "tests/system/documentation/Pattern.h"

#include <gtest/gtest.h>

#include <algorithm>

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
        for (const std::string& command : codeIn(row.cells[0]))
            found.push_back({row.line, command, row.cells[1]});
    }
    return found;
}

bool isUntested(const std::string& command) {
    // The page is read once, not for each command.
    static const std::vector<Untested> known = untestedCommands();
    return std::ranges::any_of(known, [&](const Untested& untested) { return untested.covers(command); });
}

} // namespace wardlock::test
