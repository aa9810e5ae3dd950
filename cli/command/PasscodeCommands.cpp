#include "cli/command/Commands.h"
#include "cli/command/PasscodeEntry.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingsChange.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <limits>
#include <optional>
#include <string>

namespace wardlock::cli {

namespace {

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

/// A passcode among the arguments would be in the history of the shell and in the list of processes. The
/// error does not repeat it.
void requireNoOperands(const Arguments& arguments) {
    if (!arguments.operands().empty())
        throw CommandError(ExitCode::WrongUsage,
                           "the passcode is not an argument: type it when asked, or give "
                           "it on standard input");
}

/// Returns none, which no entry equals, when the document has no passcode; the empty passcode is one that is
/// not set.
std::optional<std::string> storedPasscode() {
    const auto stored = platform::stringValue(objectForKey(kPasscode));
    return stored ? std::optional<std::string>(*stored) : std::nullopt;
}

void requireCurrent(PasscodeEntry& entry) {
    const auto stored = storedPasscode();
    for (int attempt = 0; attempt < entry.attempts(); ++attempt)
        if (entry.read("Enter Current Passcode: ") == stored)
            return;
    throw CommandError(ExitCode::Failed, "wrong passcode");
}

ExitCode store(const std::string& passcode) {
    const platform::Value value(passcode);
    finish(setTopLevelValue(BundleIdentifier, kPasscode, &value));
    return ExitCode::Done;
}

ExitCode set(const Arguments& arguments) {
    requireNoOperands(arguments);
    loadToChange();
    PasscodeEntry entry;
    if (storedPasscode() != "")
        requireCurrent(entry);
    return store(entry.readNew("Enter New Passcode: "));
}

ExitCode clear(const Arguments& arguments) {
    requireNoOperands(arguments);
    loadToChange();
    if (storedPasscode() == "")
        return ExitCode::Done;
    PasscodeEntry entry;
    requireCurrent(entry);
    return store("");
}

ExitCode check(const Arguments& arguments) {
    requireNoOperands(arguments);
    if (storedPasscode() == "")
        throw CommandError(ExitCode::Failed, "no passcode is set");
    PasscodeEntry entry;
    requireCurrent(entry);
    return ExitCode::Done;
}

} // namespace

const Verb passcodeSetVerb{
    "passcode set",
    "",
    "set the passcode, or change it",
    "Asks for the current passcode if one is set, then for the new one, which has\n"
    "four digits. On a terminal, the digits are not shown, and the fourth wrong entry\n"
    "ends the verb. Otherwise, each passcode is read from a line of standard input. A\n"
    "passcode is never an argument.\n",
    {},
    0,
    anyNumber,
    onReadableSettings<set>,
    "wardlock passcode set\nprintf '%s\\n' 1234 5678 | wardlock passcode set\n",
};

const Verb passcodeClearVerb{
    "passcode clear",
    "",
    "remove the passcode",
    "Asks for the current passcode and removes it. Does nothing if none is set. The\n"
    "passcode is read as `wardlock passcode set` reads it.\n",
    {},
    0,
    anyNumber,
    onReadableSettings<clear>,
    "wardlock passcode clear\n",
};

const Verb passcodeCheckVerb{
    "passcode check",
    "",
    "check whether a passcode is the one that is set",
    "Asks for the passcode. The exit code is 0 if it is the one that is set, and 1 if\n"
    "it is not, or if none is set. The passcode is read as `wardlock passcode set`\n"
    "reads it.\n",
    {},
    0,
    anyNumber,
    onReadableSettings<check>,
    "wardlock passcode check && echo right\n",
};

} // namespace wardlock::cli
