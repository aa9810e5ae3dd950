#include "cli/command/PasscodeEntry.h"

#include "cli/io/CommandError.h"
#include "cli/io/Output.h"
#include "cli/io/Terminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

namespace {

constexpr std::size_t digitsOfPasscode = 4;

} // namespace

PasscodeEntry::PasscodeEntry()
    // A stop from the keyboard would leave the terminal without its echo.
    : fromTerminal_(Terminal::readsInput()), stop_{SIGINT, SIGTERM, SIGHUP, SIGTSTP},
      lines_(STDIN_FILENO, [this](int descriptor) { return waitForInput(descriptor); }) {}

std::string PasscodeEntry::read(std::string_view prompt) {
    std::optional<Terminal::Hidden> hidden;
    if (fromTerminal_) {
        hidden.emplace();
        Output::prompt(prompt);
    }
    std::optional<std::string> line = lines_.next();
    if (!line)
        throw CommandError(ExitCode::Failed, "no passcode was entered");
    return *std::move(line);
}

std::string PasscodeEntry::readNew(std::string_view prompt) {
    std::string passcode = read(prompt);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (passcode.size() != digitsOfPasscode || !std::ranges::all_of(passcode, isDigit))
        throw CommandError(ExitCode::Failed, "a passcode has four digits");
    return passcode;
}

bool PasscodeEntry::waitForInput(int descriptor) {
    std::array<pollfd, 2> waits{pollfd{descriptor, POLLIN, 0}, pollfd{stop_.descriptor(), POLLIN, 0}};
    while (poll(waits.data(), waits.size(), -1) < 0)
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "poll");
    return waits[1].revents == 0;
}

} // namespace wardlock::cli
