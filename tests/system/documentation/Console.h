#pragma once

#include "tests/system/documentation/Page.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::test {

/// What a page shows of a shell: a command behind "$ " (and further lines while one ends in a backslash), and
/// below it what it prints. A block of the language `console` is the reader's terminal; with `terminal=NAME`
/// it is another one, whose first command continues while the first terminal is used. A later block of that
/// terminal, without a command, shows what it has printed since.
struct Step {
    /// The line of the command, or of the output that another terminal continues with.
    std::size_t line = 0;
    /// Empty for the reader's own.
    std::string terminal;
    /// Empty where another terminal's output continues.
    std::string command;
    std::vector<std::string> output;
};

/// The steps of a page, in order.
std::vector<Step> stepsOf(const Page& page);

/// Whether the output is the one shown, in which "..." replaces anything: for some lines where it is a line
/// of its own, else for a part of its line.
bool isAsShown(const std::vector<std::string>& shown, const std::string& output);

/// How one step ended.
struct StepResult {
    int exitCode = -1;
    std::string output;
};

/// Does the steps one after another in one shell (bash, as users have it) and returns the result of each. The
/// shell starts in `folder`; it inherits this process's environment. `scratch` is an empty folder for its own
/// use. Whatever it started in other terminals is ended with it.
std::vector<StepResult> perform(const std::vector<Step>& steps, const std::string& folder,
                                const std::string& scratch);

} // namespace wardlock::test
