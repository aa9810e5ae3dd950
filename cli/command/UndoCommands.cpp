#include "cli/command/Commands.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/VersionOperand.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "settings/Document.h"
#include "settings/history/ChangeText.h"
#include "settings/history/History.h"
#include "settings/history/KeptVersions.h"
#include "settings/history/Undo.h"

#include <array>
#include <string>

namespace wardlock::cli {

namespace {

using Outcome = UndoResult::Outcome;

constexpr Option forceOption{"--force", "", "overwrite later changes of the same keys"};

LaterChanges laterChanges(const Arguments& arguments) {
    return arguments.has(forceOption.name) ? LaterChanges::Overwrite : LaterChanges::Keep;
}

std::string joinedReasons(const UndoResult& result) {
    std::string text;
    for (const std::string& reason : result.reasons)
        text += (text.empty() ? "" : "; ") + reason;
    return text;
}

/// Prints what was changed, or throws the reason why nothing was; `nothing` returns it where there is nothing
/// to change.
template <class Reason>
ExitCode report(const UndoResult& result, Reason nothing) {
    switch (result.outcome) {
    case Outcome::Refused:
        throw CommandError(ExitCode::Failed, "later changes would be lost: " + joinedReasons(result));
    case Outcome::NoDocument:
        throw CommandError(ExitCode::Failed, joinedReasons(result) + " (see wardlock restore)");
    case Outcome::Failed:
        throw CommandError(ExitCode::Failed, "cannot write the settings: " + result.error.message());
    case Outcome::Nothing:
        throw CommandError(ExitCode::Failed, nothing());
    case Outcome::Done:
        break;
    }
    for (const std::string& text : changeTexts(result.changes))
        Output::line(printable(text));
    if (result.error)
        throw CommandError(ExitCode::Failed, "the change is in place, but a power cut may take it back: " +
                                                 result.error.message());
    return ExitCode::Done;
}

/// Versions that cannot be read are the reason for having nothing to do.
std::string nothingTo(const std::string& what) {
    const std::string reason = reasonAgainst(History().folder());
    return "nothing to " + what + (reason.empty() ? "" : ": " + reason);
}

ExitCode runUndo(const Arguments& arguments) {
    return report(undo(Whose::Anyones, laterChanges(arguments)), [] { return nothingTo("undo"); });
}

ExitCode runRedo(const Arguments& arguments) {
    return report(redo(Whose::Anyones, laterChanges(arguments)), [] { return nothingTo("redo"); });
}

ExitCode restoreLastGood() {
    const History history;
    if (document(BundleIdentifier))
        throw CommandError(ExitCode::Failed, "the settings are not damaged; name a version to restore (see "
                                             "wardlock history)");
    const platform::Version* last = history.lastReadable();
    if (!last)
        throw CommandError(ExitCode::Failed, nothingTo("restore"));
    return report(restoreVersion(*last), [] { return nothingTo("restore"); });
}

ExitCode restore(const Arguments& arguments) {
    if (arguments.operands().empty())
        return restoreLastGood();
    const std::string_view operand = arguments.operand(0);
    documentOfOperand(History(), operand);
    return report(restoreVersion(versionNumber(operand)),
                  [&] { return "the settings are already those of version " + std::string(operand); });
}

constexpr std::array forceOptions{forceOption};

} // namespace

const Verb undoVerb{
    "undo",
    "",
    "take back the last change of the settings",
    "Takes back the last change of the settings that has not been taken back yet, and\n"
    "prints what that changes. Changes of all programs count. This is a change like\n"
    "any other: stored in one step, announced key by key, and listed by `wardlock\n"
    "history`.\n"
    "\n"
    "Later changes stay. If one of them is of the same key, nothing is taken back and\n"
    "the exit code is 1, unless --force is given. Settings that are damaged or\n"
    "missing are left as they are, see `wardlock restore`.\n",
    forceOptions,
    0,
    0,
    onReadableSettings<runUndo>,
    "wardlock undo\nwardlock undo --force\n",
};

const Verb redoVerb{
    "redo",
    "",
    "apply the last undone change again",
    "Applies the last undone change again, and prints what that changes. If the\n"
    "settings have been changed since, there is nothing to apply and the exit code is\n"
    "1.\n",
    forceOptions,
    0,
    0,
    onReadableSettings<runRedo>,
    "wardlock redo\n",
};

const Verb restoreVerb{
    "restore",
    "[N]",
    "replace the settings by an earlier version",
    "Replaces the settings by version N of `wardlock history`, and prints what that\n"
    "changes. Later changes are lost; `wardlock undo` brings them back.\n"
    "\n"
    "Without N, replaces settings that are damaged or missing by the last version\n"
    "that can be read. If the settings are neither, nothing is changed and the exit\n"
    "code is 1.\n",
    {},
    0,
    1,
    restore,
    "wardlock restore\nwardlock restore 41\n",
};

} // namespace wardlock::cli
