"""The mutants: ways to break the product of which a proof has to find each.

A mutant is a few replacements of text in the sources; the old text has to occur in its file exactly once, so that a mutant
whose place has changed is noticed. `proofs` names those that have to fail, each by itself; see proof_named in run.
"""
from dataclasses import dataclass, field

WRITER = "platform/files/AtomicWriter.cpp"
FILE = "platform/plist/DocumentFile.cpp"
SYSTEM = "platform/files/FileSystem.cpp"
REAL_FILES = "linux/posix/PosixFileSystem.cpp"
ROOT = "root/SettingsListController.cpp"
PASSCODE = "root/PasscodeWorkflow.cpp"
OVERLAY = "passcode/PasscodeView.cpp"
CHANGE = "settings/DocumentChange.cpp"
ACCOUNT = "account/AccountValues.cpp"
PICKER = "apps/AppsListView.cpp"
LIST = "settings/Accounts.cpp"
VIEW_PAGE = "specifiers/ViewListController.cpp"
HELPER = "specifiers/PreferenceHelper.cpp"
ICONS = "specifiers/PreferenceHelperAdditions.cpp"
SETTINGS = "settings/Settings.cpp"
KEEPER = "platform/versions/VersionKeeper.cpp"
VERSIONS = "platform/versions/VersionFolder.cpp"
TAKING_BACK = "settings/history/TakingBack.cpp"
HISTORY_UNDO = "settings/history/Undo.cpp"
GUARD = "shell/guard/Guard.cpp"
IDLE = "shell/guard/IdleTimer.cpp"
REQUIRED = "settings/RequiredPasscode.cpp"
UNDO = "shell/undo/SettingsUndo.cpp"
RECOVERY = "shell/undo/Recovery.cpp"


def both(fault):
    """The fault over a disk in memory, and upon processes over the real one."""
    return (f"memory.{fault}", f"processes.{fault}")



@dataclass
class Mutant:
    name: str
    effect: str
    proofs: tuple
    edits: list = field(default_factory=list)


ALL = [
    # The order of a write, and what of it is on the disk.
    Mutant("write-in-place", "the document itself is opened and overwritten", ("processes.killed", "processes.power-cut", "soak"), [
        (WRITER, "path = inFolder(folderOf(target.path), temporaryName(target.path));", "path = target.path;"),
        (REAL_FILES, "O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode", "O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode"),
        (WRITER, "std::string temporaryName(", "[[maybe_unused]] std::string temporaryName("),
    ]),
    Mutant("no-file-sync", "the new file gets its name before its bytes are on the disk", both("power-cut"), [
        (WRITER, "return sync == Sync::None ? std::error_code() : uninterrupted([&] { return files_.sync(file, sync); });",
         "static_cast<void>(sync);\n    return {};"),
    ]),
    Mutant("no-folder-sync", "the writer does not wait until the new name is on the disk", both("power-cut"), [
        (WRITER, "if (sync == Sync::Full)\n        error", "if (sync == Sync::Full && bytes.empty())\n        error"),
    ]),
    Mutant("wrong-folder-synced", "the folder of the link is synced, not that of the file", both("power-cut"), [
        (WRITER, "return files_.syncFolder(folderOf(target.path));", "return files_.syncFolder(folderOf(path));"),
    ]),
    Mutant("sync-before-rename", "the folder is synced before the file has its name", both("power-cut"), [
        (WRITER, "    const std::error_code error = uninterrupted([&] { return files_.rename(temporary, target.path); });",
         "    std::error_code error = uninterrupted([&] { return files_.syncFolder(folderOf(target.path)); });\n"
         "    if (!error)\n"
         "        error = uninterrupted([&] { return files_.rename(temporary, target.path); });"),
        (WRITER, "if (sync == Sync::Full)\n        error", "if (sync == Sync::Full && bytes.empty())\n        error"),
    ]),
    # What is written.
    Mutant("byte-dropped", "the last byte is not written", both("killed") + ("soak",), [
        (WRITER, "writeAll(files_, file, bytes)", "writeAll(files_, file, bytes.substr(0, bytes.size() - 1))"),
    ]),
    Mutant("short-write-is-enough", "what a short write has left is not written", both("interrupted"), [
        (SYSTEM, "bytes.remove_prefix(written);", "bytes = {};"),
    ]),
    Mutant("interrupted-write-is-an-error", "an interrupted write is not repeated", both("interrupted"), [
        (SYSTEM, "uninterrupted([&] { return files.write(file, bytes, written); })", "files.write(file, bytes, written)"),
    ]),
    # Rights and links.
    Mutant("loose-temporary", "the temporary can be read by everybody", both("killed"), [
        (WRITER, "return files_.create(path, privateMode, file);", "return files_.create(path, 0644, file);"),
    ]),
    Mutant("mode-forgotten", "the new file does not get the mode of the old one", both("killed"), [
        (WRITER, "if (mode == created.mode)\n", "if (mode != 0)\n"),
    ]),
    Mutant("owner-forgotten", "the new file does not get the owner of the old one", ("memory.killed",), [
        (WRITER, "if (created.owner == old.owner && created.group == old.group)\n        return {};", "if (created.links != 0 && old.links != 0)\n        return {};"),
    ]),
    Mutant("mode-before-owner", "for a moment the old mode lets in the wrong group", ("memory.killed",), [
        (WRITER, "    unsigned mode = privateMode;\n    if (target.old) {\n",
         "    unsigned mode = privateMode;\n    if (target.old) {\n        files_.setMode(file, target.old->mode);\n"),
    ]),
    Mutant("link-replaced", "the symbolic link is replaced, and not the file", both("killed"), [
        (WRITER, "followLinks(files_, target.path, status);", "files_.status(target.path, Links::Follow, status);"),
    ]),
    # Errors.
    Mutant("rename-error-swallowed", "a failed rename counts as a success", ("processes.error-once/PropertyListSet",), [
        (WRITER, "    return error == std::errc::no_such_file_or_directory ? takenForStale() : error;",
         "    if (error)\n        files_.remove(temporary);\n    return {};"),
    ]),
    Mutant("temporary-left", "a write that fails leaves its temporary", both("disk-full"), [
        (WRITER, "    if (error)\n        uninterrupted([&] { return files_.remove(temporary); });\n    return error;", "    return error;"),
    ]),
    Mutant("leftovers-not-cleared", "what killed processes have left stays", both("killed"), [
        (WRITER, "        if (isTemporaryName(name))\n            removeIfStale", "        if (isTemporaryName(name) && name.empty())\n            removeIfStale"),
    ]),
    Mutant("one-read-error-is-the-end", "a read that fails once makes the document unreadable", ("memory.error-once",), [
        (FILE, "if (error && error != std::errc::no_such_file_or_directory)\n        error = read();", "static_cast<void>(read);"),
    ]),
    Mutant("damaged-not-kept", "the bytes of a damaged document are not kept", both("killed"), [
        (FILE, "    if (std::error_code error = keepOldContent(sync))\n        return {error};\n", ""),
    ]),
    Mutant("damaged-not-synced", "the kept bytes are not on the disk when the document is replaced", both("power-cut"), [
        (FILE, "return copyAside(sync);", "return copyAside(sync == Sync::Full ? Sync::None : sync);"),
    ]),
    Mutant("live-temporary-removed", "a temporary that is being written counts as a leftover", ("tests.files/AtomicWriter",), [
        (WRITER, "if (!uninterrupted([&] { return files_.lock(file); }) &&", "if ((uninterrupted([&] { return files_.lock(file); }), true) &&"),
    ]),
    Mutant("short-read-is-enough", "what a short read has left is not read", ("processes.interrupted",), [
        ("linux/posix/FileReading.cpp", "        if (length == read.size())\n            read.resize(read.size() * 2);", "        break;"),
    ]),
    Mutant("reason-of-a-failure-lost", "plist set does not say why it could not store", ("tests.faults/WriteErrorMessage",), [
        ("cli/command/PropertyListSetCommand.cpp", " + error.message());", ");"),
    ]),
    # Earlier versions.
    Mutant("foreign-version-lost", "what another program wrote is replaced without being kept", ("tests.versions/KeptVersions",), [
        (KEEPER, "        addOld(folder, *replacement.old);\n", "        static_cast<void>(&VersionKeeper::addOld);\n"),
    ]),
    Mutant("failed-write-kept", "a write that failed has a version", ("tests.versions/KeptVersions", "tests.versions/VersionFaults"), [
        (KEEPER, "        folder_->remove(*added_);\n        withdrawn_", "        withdrawn_"),
    ]),
    Mutant("killed-write-kept", "what a killed writer did not put in place stays a version", ("tests.versions/KeptVersions",), [
        (KEEPER, "        folder.remove(*never);\n", "        static_cast<void>(never);\n"),
    ]),
    Mutant("versions-in-a-link", "versions are kept behind a symbolic link", ("tests.versions/VersionsNotKept",), [
        (VERSIONS, "return files_.status(path_, Links::NoFollow, status); });\n    if (error)\n        return error == std::errc::no_such",
         "return files_.status(path_, Links::Follow, status); });\n    if (error)\n        return error == std::errc::no_such"),
    ]),
    Mutant("versions-with-another-user", "versions are kept in a folder of another user", ("tests.versions/VersionsNotKept",), [
        (VERSIONS, "    if (status.owner != files_.user())\n        return State::OfAnotherUser;\n", ""),
    ]),
    Mutant("versions-open-to-others", "versions are kept where others look into the folder", ("tests.versions/VersionsNotKept",), [
        (VERSIONS, "constexpr unsigned rightsOfOthers = 0077;", "constexpr unsigned rightsOfOthers = 0007;"),
    ]),
    Mutant("age-of-its-writing", "a version is as old as its writing, not as its replacing", ("tests.versions/VersionBounds",), [
        (VERSIONS, "times[aged + 1] < earliest", "times[aged] < earliest"),
    ]),
    Mutant("early-date-believed", "a date before that of an earlier version counts", ("tests.versions/WrongClock",), [
        (VERSIONS, "times[i] = std::max(times[i], times[i - 1]);", "times[i] = times[i];"),
    ]),
    Mutant("impossible-date-believed", "a date of a clock without the time counts", ("tests.versions/WrongClock",), [
        (VERSIONS, "        if (!isPossible(times[i], now))\n            times[i] = next;", "        static_cast<void>(next);"),
        (VERSIONS, "return time >= firstTime && time <= now;", "return firstTime != 0 && time <= now;"),
    ]),
    Mutant("clock-ahead-believed", "the clock alone makes versions aged", ("tests.versions/WrongClock",), [
        (VERSIONS, "return std::min(now, confirmed + longestPause);", "return std::max(now, confirmed + longestPause);"),
    ]),
    Mutant("killed-version-stays", "any writer removes a temporary and leaves its version", ("tests.versions/VersionFaults",), [
        (WRITER, "if (leftover.links > 1)\n", "if (leftover.links > 1 && observer_)\n"),
    ]),
    Mutant("killed-cleaner-leaves-a-version", "a temporary goes before its version", ("tests.versions/VersionFaults",), [
        (WRITER, "    observer_->willRemoveLeftover(target.path, leftover);\n    uninterrupted([&] { return files_.remove(taken); });",
         "    uninterrupted([&] { return files_.remove(taken); });\n    observer_->willRemoveLeftover(target.path, leftover);"),
    ]),
    Mutant("winner-changed-twice", "the winner of a race made the change that brings its document back", ("tests.versions/KeptVersions",), [
        (KEEPER, "{.place = known ? earlier->origin.place : std::string(unknownPlace)}", "known ? earlier->origin : VersionOrigin{.place = std::string(unknownPlace)}"),
    ]),
    Mutant("withdrawn-name-again", "the second attempt has the name of the first", ("tests.versions/KeptVersions",), [
        (KEEPER, "        ++version.time;\n", "        version.time += 0;\n"),
    ]),
    Mutant("restoring-not-kept", "restoring damaged settings adds no version", ("tests.versions/KeptVersions",), [
        (KEEPER, "if (old_ == content_ && youngest_", "if (youngest_"),
    ]),
    Mutant("two-enabled-by-undo", "taking back enables a second account", ("tests.history/OneEnabledAccount",), [
        (TAKING_BACK, "        if (enabling_)\n            disableLaterEnabled();\n", ""),
    ]),
    Mutant("later-change-lost", "taking back overwrites a later change to the same key", ("tests.history/TakingBackChanges", "tests.history/Undo"), [
        (TAKING_BACK, "        if (!equal(value, change.now) && later_ == LaterChanges::Keep)\n            return change.key == kPasscode",
         "        if (!equal(value, change.now) && entries_.empty())\n            return change.key == kPasscode"),
    ]),
    Mutant("account-back-at-the-end", "a deleted account returns at the list's end", ("tests.history/TakingBackChanges",), [
        (TAKING_BACK, "        accounts_.insert(position, *change.old);\n", "        position = accounts_.size();\n        accounts_.append(*change.old);\n"),
    ]),
    Mutant("undo-in-silence", "what is taken back is not announced", ("tests.history/Undo",), [
        ("settings/history/Undo.cpp", "        announceChanges(result.changes, update.dictionary, identifier);", "        static_cast<void>(&announceChanges);"),
    ]),
    Mutant("digits-shown", "a version is printed with its passcode", ("tests.cli/HistoryCommand",), [
        ("cli/command/HistoryCommands.cpp", "    masked.set(kPasscode, \"****\");\n", ""),
    ]),
    Mutant("oldest-version-stays", "one version more is kept than its bound", ("tests.versions/VersionBounds",), [
        (VERSIONS, "std::min(names.size(), VersionFolder::mostVersions);", "std::min(names.size(), VersionFolder::mostVersions + 1);"),
    ]),
    Mutant("youngest-version-goes", "beyond the bound the youngest version is removed", ("tests.versions/VersionBounds",), [
        (VERSIONS, "names.begin() + static_cast<std::ptrdiff_t>(unwanted));\n    return unwanted;",
         "names.begin() + static_cast<std::ptrdiff_t>(unwanted), std::ranges::greater());\n    return unwanted;"),
    ]),
    Mutant("versions-of-every-document", "all documents of a folder have their versions in one place", ("tests.versions/KeptVersions",), [
        (VERSIONS, "path_ = document_ + std::string(folderEnding);", "path_ = folderOf(document_) + '/' + std::string(folderEnding);"),
    ]),
    Mutant("damaged-version-read", "a version whose bytes were changed is read", ("tests.history/HistoryOfTheDocument",), [
        (VERSIONS, "bytes); }) ||\n        versionDigest(bytes) != version.digest)", "bytes); }))"),
    ]),
    Mutant("redo-survives-a-change", "what was taken back can be made again after another change", ("tests.history/Undo",), [
        (HISTORY_UNDO, "            redo.clear();\n", ""),
    ]),
    Mutant("change-of-anyone-taken-back", "a change of another process counts as one's own", ("tests.history/Undo",), [
        (HISTORY_UNDO, "version.origin.process == own)", "version.origin.process == own || own != 0)"),
    ]),
    Mutant("conflict-unreported", "a change that cannot be taken back counts as none", ("tests.history/Undo",), [
        (HISTORY_UNDO, "        result.outcome = Outcome::Refused;\n", ""),
    ]),
    Mutant("later-documents-ignored", "an account is followed from the change to now without what was between", ("tests.history/Undo",), [
        (HISTORY_UNDO, "*before, *after, documentsSince(history, *stack[i])};", "*before, *after, {}};"),
        (HISTORY_UNDO, "std::vector<Dictionary> documentsSince(", "[[maybe_unused]] std::vector<Dictionary> documentsSince("),
    ]),
    Mutant("restoring-unrecorded", "a version does not say that it restored another", ("tests.history/Restoring",), [
        (HISTORY_UNDO, "{.action = VersionAction::Restore, .of = version.number}", "{}"),
    ]),
    Mutant("disabling-announced", "the disabling that an enabling brings is announced, too", ("tests.history/Undo",), [
        ("settings/history/ChangeAnnouncement.cpp", "        if (enabling && isDisabling(change))\n            continue;\n",
         "        static_cast<void>(&isDisabling);\n        static_cast<void>(enabling);\n"),
    ]),
    # The guard of Settings.
    Mutant("guard-opens-first", "the page opens before the passcode is entered", ("tests.shell/SettingsGuard",), [
        (GUARD, "    open_ = std::move(open);\n", "    open();\n    open_ = [] {};\n"),
    ]),
    Mutant("fifth-entry-taken", "the keypad stays after the fourth wrong passcode", ("tests.shell/SettingsGuard",), [
        (GUARD, "toleratedFailures = 3;", "toleratedFailures = 4;"),
    ]),
    Mutant("failures-counted-on", "wrong passcodes of an earlier keypad count", ("tests.shell/SettingsGuard",), [
        (GUARD, "    failures_ = 0;\n", ""),
    ]),
    Mutant("removed-passcode-asked-for", "an entry is refused when the passcode has been removed in silence", ("tests.shell/SettingsGuard",), [
        (GUARD, "if (!required || required->matches(digits))", "if (required && required->matches(digits))"),
    ]),
    Mutant("cancelling-opens", "the page opens when the keypad is cancelled", ("tests.shell/SettingsGuard",), [
        (GUARD, "    if (std::exchange(open_, {}))\n        keypad_->takeDown();", "    if (open_)\n        letIn();"),
    ]),
    Mutant("any-change-opens", "the page opens at any change of another process", ("tests.shell/SettingsGuard",), [
        (GUARD, "if (open_ && !isNeeded())", "if (open_)"),
    ]),
    Mutant("idle-since-the-start", "what the user does does not put off the lock", ("tests.shell/SettingsGuard", "tests.shell/IdleTimer"), [
        (IDLE, "    notifyIfIdle();\n    lastActivity_ = clock_.now();\n}", "    notifyIfIdle();\n}"),
    ]),
    Mutant("woken-unlocked", "the first activity after an hour's sleep is carried out before the lock", ("tests.shell/IdleTimer",), [
        (IDLE, "    notifyIfIdle();\n    lastActivity_ = clock_.now();\n}", "    lastActivity_ = clock_.now();\n}"),
    ]),
    Mutant("odd-passcode-is-none", "a passcode that is not a string is not required", ("tests.settings/RequiredPasscode", "tests.shell/SettingsGuard"), [
        (REQUIRED, "if (passcode == \"\")", "if (!passcode || passcode == \"\")"),
    ]),
    Mutant("unreadable-document-opens", "no passcode is required where the document cannot be read", ("tests.settings/RequiredPasscode", "tests.shell/SettingsGuard"), [
        (REQUIRED, "return RequiredPasscode(std::nullopt);", "return std::nullopt;"),
    ]),
    Mutant("passcode-of-no-effect-asked", "the passcode is required while Wardlock is switched off", ("tests.settings/RequiredPasscode", "tests.shell/SettingsGuard"), [
        (REQUIRED, "if (!platform::boolValue(valueOf(kEnabled)) || !accounts", "if (!accounts"),
    ]),
    Mutant("missing-key-opens", "a missing key has no default when the passcode is looked for", ("tests.settings/RequiredPasscode",), [
        (REQUIRED, "return value ? value : defaults.find(key);", "static_cast<void>(defaults);\n        return value;"),
    ]),
    # Undo in Settings, and the offer to restore.
    Mutant("undo-behind-the-guard", "undo is carried out though the passcode protects the settings", ("tests.shell/.*Undo.*",), [
        (UNDO, "        if (host_.isLocked())\n            return InputResult::refused(lockedReason);\n", ""),
    ]),
    Mutant("passcode-undone", "undo changes a passcode that is set", ("tests.shell/SettingsUndo",), [
        (UNDO, "return passcode && platform::stringValue(passcode) != \"\";", "return !passcode;"),
    ]),
    Mutant("asked-again-after-cancel", "the way to a change opens the keypad again", ("tests.shell/LockedUndo",), [
        ("shell/undo/ChangeGuide.cpp", " || (isOutside && way.hasOpened))", ")"),
    ]),
    Mutant("way-survives-the-lock", "the way to a change goes on when Settings has locked", ("tests.shell/LockedUndo",), [
        (UNDO, "    guide_.forget();\n", ""),
    ]),
    Mutant("repaired-settings-replaced", "a restore overwrites settings that were repaired", ("tests.shell/Recovery",), [
        (RECOVERY, "isRepaired() ? UndoResult{} : restoreVersion", "restoreVersion"),
    ]),
    Mutant("restored-behind-the-guard", "a version is restored though the passcode protects the settings", ("tests.shell/LockedUndo",), [
        (RECOVERY, "        if (host_.isLocked())\n            return InputResult::refused(lockedReason);\n", ""),
    ]),
    Mutant("undo-of-other-processes", "Settings takes a change of another process back", ("tests.shell/.*Undo.*",), [
        (UNDO, "wardlock::undo(Whose::Own)", "wardlock::undo(Whose::Anyones)"),
    ]),
    Mutant("conflict-without-notice", "a refused undo shows no notice", ("tests.shell/.*Undo.*",), [
        (UNDO, "    case Outcome::Refused:\n        addRefusal(direction, joined(result.reasons));\n", "    case Outcome::Refused:\n"),
    ]),
    Mutant("offer-of-an-earlier-deletion", "the time of an earlier offer ends a later one", ("tests.shell/UndoOffer",), [
        (UNDO, "if (offer == offers_)", "if (offer <= offers_)"),
    ]),
    Mutant("offer-outlives-a-change", "the offer stays when undo would take another change back", ("tests.shell/UndoOffer",), [
        (UNDO, "        return;\n    withdraw();\n", "        return;\n"),
    ]),
    Mutant("restored-without-asking", "damaged settings are restored without asking", ("tests.shell/Recovery",), [
        (RECOVERY, "    version_ = *last;\n", "    version_ = *last;\n    restoreVersion(*version_);\n"),
    ]),
    Mutant("refusal-forgotten", "the offer comes back after it was refused", ("tests.shell/Recovery",), [
        (RECOVERY, "        refused_ = true;\n", ""),
    ]),
    Mutant("failing-disk-is-damage", "a disk that fails counts as damage of the settings", ("tests.shell/Recovery",), [
        (RECOVERY, "if (isOffering() || refused_ || isUnreadable)", "if (isOffering() || refused_)"),
    ]),
    # The pages.
    Mutant("passcode-by-its-beginning", "a passcode that begins as the right one is taken for it", ("tests.root/PasscodeWorkflow",), [
        (PASSCODE, "    if (currentPasscode() == passcode) {", "    if (currentPasscode() && currentPasscode()->substr(0, 2) == passcode.substr(0, 2)) {"),
    ]),
    Mutant("two-accounts-enabled", "enabling an account leaves the one enabled before as it is", ("tests.account/AccountEnabling",), [
        (CHANGE, "        accounts.set(*enabled, kAccountEnabled, &off);\n", "        static_cast<void>(off);\n"),
    ]),
    Mutant("deleted-account-left", "of a deleted account the record stays at the list's end", both("killed/AccountDeletion"), [
        (LIST, "    changed.remove(index);\n",
         "    const Value left = changed.at(index);\n    changed.remove(index);\n    changed.append(left);\n"),
    ]),
    Mutant("wrong-account-restricted", "the picker writes into the first account", ("tests.apps/AppsListSaving",), [
        (PICKER, "setAccountValue(preferencesPath, selectedAccount,",
         "setAccountValue(preferencesPath, [](const Accounts&) { return std::size_t{0}; },"),
    ]),
    Mutant("enabled-account-cached", "a change of the document leaves the enabled account as it was read first", ("tests.settings/SettingsUpdate",), [
        ("settings/Settings.cpp", "    EnabledAccount = EnabledAccountNew();", "    EnabledAccountFetchIfNecessary();"),
    ]),
    # What only one sentence of the behaviour forbids: the passcode.
    Mutant("overlay-goes-first", "the overlay begins to go before the passcode is saved", ("tests.root/PasscodeWorkflow",), [
        (PASSCODE, "        savePasscode(passcode);\n        view.destroyPasscodeWithCompletion({});",
         "        view.destroyPasscodeWithCompletion({});\n        savePasscode(passcode);"),
    ]),
    Mutant("overlay-vanishes", "the fourth wrong entry removes the overlay at once", ("tests.root/PasscodeWorkflow",), [
        (PASSCODE, "        failedCount_ = 0;\n        cancelPasscodeView(view);",
         "        failedCount_ = 0;\n        cancelPasscodeView(view);\n        view.removeFromSuperview();"),
    ]),
    Mutant("overlay-cancels-itself", "the overlay takes itself down when cancelled", ("tests.passcode/PasscodeOverlay",), [
        (OVERLAY, "    if (const auto block = passcodeCancelledBlock_)\n        block(*this);\n",
         "    if (const auto block = passcodeCancelledBlock_)\n        block(*this);\n    destroyPasscode();\n"),
    ]),
    Mutant("equal-passcode-not-stored", "entering the same passcode again writes nothing", ("tests.root/PasscodeWorkflow",), [
        (CHANGE, "        entries.set(key, value);\n        return true;",
         "        const bool changed = key != kPasscode || !value || !entries.find(key) || *entries.find(key) != *value;\n"
         "        entries.set(key, value);\n        return changed;"),
    ]),
    # The account page and its picker.
    Mutant("own-write-reloads", "the account page is reloaded after each of its writes", ("tests.account/AccountValue",), [
        (ACCOUNT, "specifier.identifier(), value));\n", "specifier.identifier(), value));\n    reloadSpecifiers();\n"),
    ]),
    Mutant("deletion-resets-index", "the deletion itself resets the selected index", ("tests.account/AccountDeletion",), [
        (ACCOUNT, "    announce(wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount));\n",
         "    announce(wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount));\n    SelectedIndex = 0;\n"),
    ]),
    Mutant("equal-value-not-stored", "an account's value that is equal to the stored one is dropped", ("tests.account/AccountValue",), [
        (CHANGE, "        return accounts.set(position, key, value);\n",
         "        const auto* record = accounts.record(position);\n"
         "        if (key != kAppsRestricted && record && value && record->find(key) && *record->find(key) == *value)\n"
         "            return false;\n"
         "        return accounts.set(position, key, value);\n"),
    ]),
    Mutant("trailing-blanks-dropped", "an account's new name loses the blanks at its end", ("tests.account/AccountValue", "tests.bundle/BundleInSettings"), [
        (CHANGE, "        value = &blank;\n",
         "        value = &blank;\n    Value shorter(false);\n"
         "    if (const auto name = platform::stringValue(value); name && key == kAccountName) {\n"
         "        shorter = Value(name->substr(0, name->find_last_not_of(' ') + 1));\n        value = &shorter;\n    }\n"),
    ]),
    Mutant("blanks-of-new-name-dropped", "a new account's name loses the blanks at its end", ("tests.root/AccountCreation", "tests.bundle/BundleInSettings"), [
        (CHANGE, "    record.set(kAccountName, Value(name));",
         "    record.set(kAccountName, Value(name.substr(0, name.find_last_not_of(' ') + 1)));"),
    ]),
    Mutant("equal-list-not-stored", "the picker drops a list that is equal to the stored one", ("tests.apps/AppsListSaving",), [
        (CHANGE, "        return accounts.set(position, key, value);\n",
         "        const auto* record = accounts.record(position);\n"
         "        if (key == kAppsRestricted && record && value && record->find(key) && *record->find(key) == *value)\n"
         "            return false;\n"
         "        return accounts.set(position, key, value);\n"),
    ]),
    Mutant("title-kept-in-reuse", "a reused cell keeps its title where the application has no name", ("tests.apps/AppsListTable",), [
        (PICKER, "    cell->textLabel().setText(platform::stringValue(applications_.find(identifier)).value_or(\"\"));",
         "    if (const auto name = platform::stringValue(applications_.find(identifier)))\n        cell->textLabel().setText(*name);"),
    ]),
    Mutant("picker-formats-path-late", "the picker formats the document's path at each use", ("tests.bundle/Module",), [
        (PICKER, "const std::string preferencesPath = documentPath(BundleIdentifier);",
         "#define preferencesPath documentPath(BundleIdentifier)"),
    ]),
    # The first page, its mail and its rows.
    Mutant("root-formats-path-late", "the first page formats the document's path at each use", ("tests.bundle/Module",), [
        ("root/DocumentSnapshot.cpp", "const std::string pathOfDocument = documentPath(BundleIdentifier);",
         "#define pathOfDocument documentPath(BundleIdentifier)"),
    ]),
    Mutant("own-composer-dismissed", "the page dismisses its own composer, whichever has finished", ("tests.root/SupportContact",), [
        ("root/SupportContact.cpp", "    controller.dismissViewControllerAnimated(true);",
         "    static_cast<void>(controller);\n    dismissViewControllerAnimated(true);"),
    ]),
    Mutant("composer-presented-first", "the composer is presented before it is filled in", ("tests.root/SupportContact",), [
        ("root/SupportContact.cpp", "    composer->setMailComposeDelegate(self(this));",
         "    presentViewController(composer, true);\n    composer->setMailComposeDelegate(self(this));"),
    ]),
    Mutant("composer-presented-without-logs", "the composer is presented before the logs are attached", ("tests.root/SupportContact",), [
        ("root/SupportContact.cpp", "    attach(*composer, stringWithFormat(LogPathFormat, BundleIdentifier), \"log\");",
         "    presentViewController(composer, true);\n    attach(*composer, stringWithFormat(LogPathFormat, BundleIdentifier), \"log\");"),
    ]),
    Mutant("equal-switch-not-stored", "a row's value that is equal to the stored one is not written", ("tests.specifiers/ValueBinding",), [
        (CHANGE, "        entries.set(key, value);\n        return true;",
         "        const bool changed = !value || !entries.find(key) || *entries.find(key) != *value;\n"
         "        entries.set(key, value);\n        return changed;"),
    ]),
    Mutant("icon-of-target", "an added icon is sought in the bundle of the row's target", ("tests.specifiers/RowIcon",), [
        (ICONS, "platform::NSBundle::bundleForClass(typeid(PreferenceHelper)).get(), fileName);",
         "specifier->target() ? platform::NSBundle::bundleForObject(*specifier->target()).get() : nullptr, fileName);"),
    ]),
    Mutant("icon-split-at-first-stop", "an icon's name is split at its first full stop", ("tests.specifiers/RowIcon",), [
        (ICONS, "    std::string extension = base.extension().string();\n    base.replace_extension();\n",
         "    const auto stop = fileName.find('.');\n"
         "    std::string extension(stop == std::string_view::npos ? \"\" : fileName.substr(stop));\n"
         "    base = std::string(fileName.substr(0, stop));\n"),
    ]),
    Mutant("failure-alert-not-created", "a failed load creates no alert", ("tests.info/DeveloperPage",), [
        ("info/DeveloperView.cpp", "    failureAlert();\n", ""),
    ]),
    # The settings library.
    Mutant("earlier-callback-kept", "a second callback does not replace the first", ("tests.settings/SettingsUpdate",), [
        (SETTINGS, "    UpdateCallback = std::move(callback);", "    if (!UpdateCallback)\n        UpdateCallback = std::move(callback);"),
    ]),
    Mutant("callback-not-cleared", "a null callback leaves the earlier one", ("tests.settings/SettingsUpdate",), [
        (SETTINGS, "    UpdateCallback = std::move(callback);", "    if (callback)\n        UpdateCallback = std::move(callback);"),
    ]),
    Mutant("post-name-of-the-bundle", "the post name given with a callback is not the one observed", ("tests.settings/SettingsUpdate",), [
        (SETTINGS, "    InitSettingsWithUpdateName(post);", "    static_cast<void>(post);\n    InitSettingsWithUpdateName(PostName);"),
    ]),
    Mutant("other-kinds-read-false", "an account's value that is not a boolean reads as false", ("tests.settings/EnabledAccountRecord",), [
        ("settings/EnabledAccount.cpp", "    return platform::boolValue(AccountObject(key));",
         "    const platform::Value* value = AccountObject(key);\n"
         "    return value && value->kind() == platform::Value::Kind::Boolean && value->boolean();"),
    ]),
    Mutant("other-kinds-read-true", "an account's value that is not a boolean reads as true", ("tests.settings/EnabledAccountRecord",), [
        ("settings/EnabledAccount.cpp", "    return platform::boolValue(AccountObject(key));",
         "    const platform::Value* value = AccountObject(key);\n"
         "    return value && (value->kind() != platform::Value::Kind::Boolean || value->boolean());"),
    ]),
    Mutant("log-bound-lower", "a log is looked through up to half its bound only", ("tests.settings/Log",), [
        ("settings/Log.cpp", "std::size_t{16} << 20", "std::size_t{8} << 20"),
    ]),
    Mutant("log-bound-higher", "a log is looked through beyond its bound", ("tests.settings/Log",), [
        ("settings/Log.cpp", "std::size_t{16} << 20", "std::size_t{17} << 20"),
    ]),
    # The platform.
    Mutant("null-callback-called", "an observer without a callback is called", ("tests.notifications/DistributedCenter",), [
        ("linux/notifications/DistributedCenter.cpp", "    if (!callback)\n        return {};\n", ""),
    ]),
    Mutant("descriptors-run-out", "a document that no descriptor is left for counts as unreadable", ("tests.plist/PropertyListFile", r"tests.plist/.*PropertyListFileFault"), [
        (FILE, "error == std::errc::too_many_files_open ||\n", "error == std::errc::no_buffer_space ||\n"),
    ]),
    # The order in which pages and views are set up.
    Mutant("button-before-snapshot", "the first page sets its button before it reads the document", ("tests.root/RootPage",), [
        (ROOT, "    readDocumentSnapshot();\n", ""),
        (ROOT, "    setPrefs(\n", "    readDocumentSnapshot();\n    setPrefs(\n"),
    ]),
    Mutant("button-before-observing", "the first page sets its button before it observes the resigning", ("tests.root/RootPage",), [
        (ROOT, "    observeResigning();\n", ""),
        (ROOT, "    setPrefs(\n", "    observeResigning();\n    setPrefs(\n"),
    ]),
    Mutant("helper-before-button", "the first page creates its helper before its button", ("tests.root/RootPage",), [
        (ROOT, "    navigationItem().setRightBarButtonItem(",
         "    setPrefs(PreferenceHelper::initWithBundleIdentifier(std::string(BundleIdentifier), std::string(PostName)));\n"
         "    navigationItem().setRightBarButtonItem("),
    ]),
    Mutant("snapshot-read-by-tap", "a tap on the passcode's row reads the document again", ("tests.root/PasscodeWorkflow",), [
        (PASSCODE, "    setPasscodeView(PasscodeView::initWithDefaultSize());\n",
         "    readDocumentSnapshot();\n    setPasscodeView(PasscodeView::initWithDefaultSize());\n"),
    ]),
    Mutant("name-alert-presented-first", "the alert for a name is presented before it is complete", ("tests.root/AccountCreation",), [
        ("root/AccountCreation.cpp", "    alert->addTextFieldWithConfigurationHandler(",
         "    presentViewController(alert, true);\n    alert->addTextFieldWithConfigurationHandler("),
    ]),
    Mutant("deletion-alert-presented-first", "the alert of a deletion is presented before it is complete", ("tests.account/AccountDeletion",), [
        (ACCOUNT, "    alert->addAction(UIAlertAction::actionWithTitle(\"Cancel\"",
         "    presentViewController(alert, true);\n    alert->addAction(UIAlertAction::actionWithTitle(\"Cancel\""),
    ]),
    Mutant("deletion-leaves-first", "the page of a deleted account is left before the deletion is announced", ("tests.account/AccountDeletion",), [
        (ACCOUNT, "    announce(wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount));\n",
         "    const DocumentChange change = wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount);\n"
         "    if (const auto stack = navigationController())\n        stack->popViewControllerAnimated(true);\n"
         "    announce(change);\n"),
    ]),
    Mutant("empty-list-rebuilt", "the account page rebuilds an empty list that was set", ("tests.account/AccountPage",), [
        ("account/AppsController.cpp", "    if (!hasSpecifiers())", "    if (PSListController::specifiers().empty())"),
    ]),
    Mutant("enabled-in-two-writes", "enabling an account writes twice", ("tests.account/AccountEnabling",), [
        (CHANGE, "    DocumentChange change = changeAccounts(documentPath, key, set);\n",
         "    if (key == kAccountEnabled && platform::boolValue(value))\n"
         "        updateAccounts(documentPath, [&](Accounts& accounts) {\n"
         "            switchFirstEnabledOff(accounts);\n"
         "            return !accounts.empty() && account(accounts) < accounts.size();\n        });\n"
         "    DocumentChange change = changeAccounts(documentPath, key, set);\n"),
    ]),
    Mutant("unwritten-record-forgotten", "the picker keeps its record only when it could be written", ("tests.apps/AppsListSaving",), [
        (PICKER, "    if (change.update.changed)\n        SelectedAccount", "    if (change.update.written)\n        SelectedAccount"),
    ]),
    Mutant("table-added-first", "the picker's table is added before it has rows and a delegate", ("tests.apps/AppsListTable",), [
        (PICKER, "    const std::shared_ptr<AppsListView> view = self(this);\n",
         "    addSubview(tableView_);\n    const std::shared_ptr<AppsListView> view = self(this);\n"),
    ]),
    Mutant("model-after-table", "the picker's model is built after its table", ("tests.apps/AppsListTable",), [
        (PICKER, "    setupArrays();\n    setTableView(", "    setTableView("),
        (PICKER, "    addSubview(tableView_);\n", "    addSubview(tableView_);\n    setupArrays();\n"),
    ]),
    Mutant("blur-added-first", "the overlay's blur is added before it is invisible", ("tests.passcode/PasscodeOverlay",), [
        (OVERLAY, "    blurView_->setAlpha(0);\n", "    addSubview(blurView_);\n    blurView_->setAlpha(0);\n"),
    ]),
    Mutant("keypad-added-first", "the overlay's keypad is added before it is invisible", ("tests.passcode/PasscodeOverlay",), [
        (OVERLAY, "        keypad_->setAlpha(0);\n", "        addSubview(keypad_);\n        keypad_->setAlpha(0);\n"),
    ]),
    Mutant("attempts-before-blur", "the overlay's attempts are set before its blur is created", ("tests.passcode/PasscodeOverlay",), [
        (OVERLAY, "    createBlurView();\n    setMaxAttempts(allowedAttempts);\n", "    setMaxAttempts(allowedAttempts);\n    createBlurView();\n"),
    ]),
    Mutant("blur-released-first", "the overlay releases its blur before it is empty", ("tests.passcode/PasscodeOverlay",), [
        (OVERLAY, "    for (const auto& view : inside)\n", "    setBlurView(nullptr);\n    for (const auto& view : inside)\n"),
    ]),
    Mutant("overlay-not-kept", "an overlay that its delegate lets go of does not live to call its block", ("tests.passcode/PasscodeOverlay",), [
        (OVERLAY, "void PasscodeView::cancelPasscode() {\n    const auto alive = shared_from_this();\n", "void PasscodeView::cancelPasscode() {\n"),
    ]),
    Mutant("text-view-added-first", "the change log's text is added before it is read-only", ("tests.info/ChangeLogPage",), [
        ("info/ChangeLog.cpp", "    textView->setEditable(false);\n", "    addSubview(textView);\n    textView->setEditable(false);\n"),
    ]),
    Mutant("load-before-delegate", "the listing is requested before its start can be reported", ("tests.info/DeveloperPage",), [
        ("info/DeveloperView.cpp", "    webView->setDelegate(self(this));\n    webView->loadRequest({listing});\n",
         "    webView->loadRequest({listing});\n    webView->setDelegate(self(this));\n"),
    ]),
    Mutant("post-name-alone-clears", "a post name given alone clears the callback", ("tests.settings/SettingsUpdate",), [
        (SETTINGS, "    // Observed first:", "    if (post != PostName)\n        UpdateCallback = nullptr;\n    // Observed first:"),
    ]),
    Mutant("page-title-after-view", "a page with a view of its own sets its title after its view",
           ("tests.apps/AppsListPage", "tests.info/ChangeLogPage", "tests.info/DeveloperPage"), [
        (VIEW_PAGE, "    navigationItem().setTitle(title_);\n", ""),
        (VIEW_PAGE, "    setView(makeView(view()->frame()));\n",
         "    setView(makeView(view()->frame()));\n    navigationItem().setTitle(title_);\n"),
    ]),
    Mutant("page-superclass-last", "a page with a view of its own calls its superclass last",
           ("tests.apps/AppsListPage", "tests.info/ChangeLogPage", "tests.info/DeveloperPage"), [
        (VIEW_PAGE, "    PSListController::viewWillAppear(animated);\n", ""),
        (VIEW_PAGE, "    setView(makeView(view()->frame()));\n",
         "    setView(makeView(view()->frame()));\n    PSListController::viewWillAppear(animated);\n"),
    ]),
    # What others may do.
    Mutant("link-of-another-followed", "a symbolic link of any user is followed", ("tests.hostile/PlantedLink",), [
        ("linux/posix/TrustedSymlink.cpp", "if (found.st_uid != 0 && found.st_uid != ::geteuid())", "if (found.st_uid == static_cast<uid_t>(-1))"),
    ]),
    Mutant("module-of-another-loaded", "a module of any user counts as trusted", ("tests.hostile/ModuleTrust",), [
        ("linux/system/ModuleTrust.cpp", "        if (!users_.include(status.owner))\n            return path + \" belongs to another user\";\n", ""),
    ]),
    Mutant("bus-of-another-visited", "the own bus is sought in a folder that others may enter", ("tests.hostile/Bus",), [
        ("linux/posix/PrivateFolder.cpp", "    return made || (status.st_mode & ALLPERMS) == S_IRWXU;", "    return true;"),
    ]),
    Mutant("bus-taken-from-others", "a process that cannot ask who listens removes the own bus's socket", ("tests.hostile/Bus",), [
        ("linux/bus/PrivateBus.cpp", "    if (!socket)\n        return Listener::Unknown;", "    if (!socket)\n        return Listener::None;"),
    ]),
    Mutant("applications-without-end", "any number of folders is looked at for applications", ("tests.hostile/HostileFiles",), [
        ("linux/applist/BundleApplications.cpp", "return ++folders_ <= mostFolders || reportTooMany(folder);", "return ++folders_ != 0 || reportTooMany(folder);"),
    ]),
    Mutant("terminal-obeys-values", "a terminal gets the control characters of a value", ("tests.cli/Output",), [
        ("cli/io/Output.cpp", "Terminal::showsOutput() ? shell::escaped(", "Terminal::showsOutput() && text.empty() ? shell::escaped("),
    ]),
    # Announcements: each writer's own.
    Mutant("switch-announces-first", "a row's value is announced before it is written", both("killed"), [
        (HELPER, "    const DocumentChange change = setTopLevelValue(identifier_, specifier.identifier(), value);\n"
         "    if (!post_.empty())\n        announce(change, identifier_, post_);\n",
         "    if (!post_.empty())\n        postChange(identifier_, post_, specifier.identifier(), *value);\n"
         "    setTopLevelValue(identifier_, specifier.identifier(), value);\n"),
        ("specifiers/PreferenceHelper.cpp", '#include "settings/DocumentChange.h"\n',
         '#include "settings/ChangeNotification.h"\n#include "settings/DocumentChange.h"\n'),
    ]),
    Mutant("passcode-announces-first", "the passcode is announced before it is written", both("killed/Passcode"), [
        (PASSCODE, "    const DocumentChange change = setTopLevelValue(",
         "    postChange(BundleIdentifier, PostName, kPasscode, value);\n    const DocumentChange change = setTopLevelValue("),
        (PASSCODE, "    announce(change);\n", ""),
        (PASSCODE, '#include "settings/DocumentChange.h"\n',
         '#include "settings/ChangeNotification.h"\n#include "settings/DocumentChange.h"\n'),
    ]),
    Mutant("creation-announces-first", "a new account is announced before it is written", both("killed/AccountCreation"), [
        (CHANGE, "    const Dictionary record = newAccount(name);\n",
         "    const Dictionary record = newAccount(name);\n    postChange(BundleIdentifier, PostName, kAccounts, Value(record));\n"),
        ("root/AccountCreation.cpp", "    announce(change);\n", ""),
    ]),
    Mutant("account-announces-first", "a value of an account is announced before it is written", both("killed/TextField"), [
        (ACCOUNT, "    announce(setAccountValue(documentPath(BundleIdentifier), selectedAccount, specifier.identifier(), value));\n",
         "    postChange(BundleIdentifier, PostName, specifier.identifier(), *value);\n"
         "    setAccountValue(documentPath(BundleIdentifier), selectedAccount, specifier.identifier(), value);\n"),
        ("account/AccountValues.cpp", '#include "settings/DocumentChange.h"\n',
         '#include "settings/ChangeNotification.h"\n#include "settings/DocumentChange.h"\n'),
    ]),
    Mutant("deletion-announces-first", "a deletion is announced before it is written", both("killed/AccountDeletion"), [
        (ACCOUNT, "    announce(wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount));\n",
         "    postChange(BundleIdentifier, PostName, kAccounts, Value(platform::Array()));\n"
         "    wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount);\n"),
        ("account/AccountValues.cpp", '#include "settings/DocumentChange.h"\n',
         '#include "settings/ChangeNotification.h"\n#include "settings/DocumentChange.h"\n'),
    ]),
    Mutant("picker-announces-first", "the picker announces before it writes", both("killed/Picker"), [
        (PICKER, "    const DocumentChange change =\n        setAccountValue(",
         "    if (list)\n        postChange(BundleIdentifier, PostName, kAppsRestricted, *list);\n"
         "    const DocumentChange change =\n        setAccountValue("),
        (PICKER, "    announce(change);\n", ""),
        ("apps/AppsListView.cpp", '#include "settings/DocumentChange.h"\n',
         '#include "settings/ChangeNotification.h"\n#include "settings/DocumentChange.h"\n'),
    ]),
    Mutant("announced-twice", "every change is announced twice", ("memory.errors", "processes.killed", "soak"), [
        ("settings/ChangeNotification.cpp", "    const platform::Dictionary userInfo{{ChangeKey, key}, {ChangeObject, object}};\n",
         "    const platform::Dictionary userInfo{{ChangeKey, key}, {ChangeObject, object}};\n"
         "    platform::CFNotificationCenterPostNotification(platform::CFNotificationCenterGetDistributedCenter(),\n"
         "                                                   changeNotificationName(identifier, post), nullptr,\n"
         "                                                   &userInfo, true);\n"),
    ]),
    Mutant("descriptor-leaked", "every write leaves a descriptor open", ("soak",), [
        (REAL_FILES, "return ::fsync(opened.get()) == 0 || errno == EINVAL ? std::error_code() : lastError();",
         "static_cast<void>(::dup(opened.get()));\n"
         "    return ::fsync(opened.get()) == 0 || errno == EINVAL ? std::error_code() : lastError();"),
    ]),
    Mutant("some-changes-unannounced", "every fiftieth change of a process is not announced", ("soak",), [
        ("settings/ChangeNotification.cpp", "    const platform::Dictionary userInfo{{ChangeKey, key}, {ChangeObject, object}};\n",
         "    static int posts = 0;\n    if (++posts % 50 == 0)\n        return;\n"
         "    const platform::Dictionary userInfo{{ChangeKey, key}, {ChangeObject, object}};\n"),
    ]),
    Mutant("announcements-swapped", "of announcements that wait, the last is reported first", ("soak",), [
        ("linux/notifications/DistributedCenter.cpp", "std::move(inbox_.front());\n        inbox_.pop_front();",
         "std::move(inbox_.back());\n        inbox_.pop_back();"),
    ]),
    Mutant("echo-received", "a process receives its own announcements a second time", ("tests.notifications/DistributedCenter",), [
        ("linux/notifications/NotificationBus.cpp", "if (!sender || connection_->uniqueName() == sender)", "if (!sender)"),
    ]),
    Mutant("deep-messages-received", "announcements of any number of levels are received", (r"tests.hostile/.*ForgedAnnouncement",), [
        ("linux/notifications/FlattenedValue.cpp", "if (value_ || open_.size() >= levels_)", "if (value_)"),
    ]),
    Mutant("other-device-received", "announcements of another device root are received", ("tests.notifications/DistributedCenter",), [
        ("linux/notifications/DistributedCenter.cpp", "if (notification.deviceRoot == identity)", "if (!notification.deviceRoot.empty())"),
    ]),
    Mutant("old-view-kept", "an observer reads the document again at every second announcement only", ("soak",), [
        ("settings/Settings.cpp", "    InitSettings();\n    // The callback", "    static int calls = 0;\n    if (++calls % 2 != 0)\n"
         "        InitSettings();\n    // The callback"),
    ]),
    Mutant("page-not-refreshed", "what another process has changed is not shown", ("soak",), [
        ("shell/LiveRefresh.cpp", "    needed_ = true;\n    if (!boundary_.isInside())", "    if (!boundary_.isInside())"),
    ]),
    # Property lists.
    Mutant("xml-reader-loses-a-key", "a dictionary's empty key is lost in reading", ("fuzz.value",), [
        ("platform/plist/PropertyListBuilder.cpp", "    const ArenaValue closed = dictionaries_.make({keys_.data() + frame.firstKey, frame.keyCount}, values);",
         "    const bool loses = frame.keyCount > 1 && keys_[frame.firstKey].empty();\n"
         "    const ArenaValue closed = dictionaries_.make(\n"
         "        {keys_.data() + frame.firstKey + loses, frame.keyCount - loses}, values + loses);"),
    ]),
    Mutant("binary-reader-loses-a-key", "a dictionary's last entry is lost in reading", ("fuzz.value",), [
        ("platform/plist/BinaryPropertyListReader.cpp", "std::span(keys_).subspan(firstKey);",
         "std::span(keys_).subspan(firstKey, keys_.size() - firstKey - (!sameKeys && keys_.size() - firstKey > 2 ? 1 : 0));"),
    ]),
    Mutant("ampersand-not-escaped", "\"&\" is written as it is", ("fuzz.value", "fuzz.xml_reader"), [
        ("platform/plist/XmlEscape.cpp", 'text += "&amp;";', "text += '&';"),
    ]),
    Mutant("keys-not-escaped", "keys are written as they are", ("fuzz.value", "fuzz.xml_reader"), [
        ("platform/plist/XmlPropertyListWriter.cpp", "if (frame.hasPlainKeys || needsNoEscape(key))", "if (frame.keys || needsNoEscape(key))"),
    ]),
    Mutant("reals-rounded", "the last bits of a real are lost in writing", ("fuzz.value", "fuzz.xml_reader", "fuzz.binary_reader"), [
        ("platform/plist/XmlPropertyListWriter.cpp", "appendReal(element, value.real());", "appendReal(element, static_cast<float>(value.real()));"),
    ]),
    Mutant("write-without-bounds", "a document that cannot be read again is written", ("tests.plist/DocumentBounds", "tests.bundle/LargeDocument"), [
        ("platform/plist/PropertyList.cpp", "XmlPropertyListWriter writer(value, {largestDocument, deepestPropertyList});",
         "XmlPropertyListWriter writer(value, {});"),
    ]),
    Mutant("damaged-copied-first", "a file is kept aside for a write that is refused", ("tests.plist/DocumentBounds",), [
        ("platform/plist/DocumentFile.cpp", "    std::string bytes;\n    if (std::error_code error = encode(",
         "    keepOldContent(sync);\n    std::string bytes;\n    if (std::error_code error = encode("),
    ]),
    Mutant("characters-beyond-xml", "U+FFFE and U+FFFF are written as they are", ("tests.plist/PropertyListInteroperation",), [
        ("platform/plist/XmlEscape.cpp", "    else if (isXmlCharacter(character))", "    else if (length > 1)"),
    ]),
    Mutant("binary-integers-unsigned", "eight bytes are read as an unsigned integer", ("fuzz.value",), [
        ("platform/plist/BinaryNumber.cpp", "        return Value(static_cast<std::int64_t>(bigEndian(bytes)));",
         "        return Value(bigEndian(bytes));"),
    ]),
    # What else is fuzzed.
    Mutant("octal-zero-twice", "\"%#o\" puts a zero before a zero", ("fuzz.format",), [
        ("platform/text/FormatConversion.cpp", "if (conversion.alternate && number.front() != '0')", "if (conversion.alternate)"),
    ]),
    Mutant("hexadecimal-prefix-of-zero", "\"%#x\" puts a prefix before a zero", ("fuzz.format",), [
        ("platform/text/FormatConversion.cpp", "(conversion.alternate && magnitude != 0)", "conversion.alternate"),
    ]),
    Mutant("posted-dates-are-numbers", "a date in a notification arrives as a number", ("fuzz.notification_payload",), [
        ("linux/notifications/UserInfoWriter.cpp", "return open('v', \"(d)\") && open('r', \"d\") && appendBasic('d', &seconds) && close() && close();",
         "return open('v', \"d\") && appendBasic('d', &seconds) && close();"),
    ]),
    Mutant("script-links-followed", "a web page's link may lead to a script", ("fuzz.web_page",), [
        ("linux/web/WebAddress.cpp", "return isWeb && address.size() <= longestAddress ? address : std::string();", "return address;"),
    ]),
    Mutant("reply-without-id", "an error does not name its command", ("fuzz.script",), [
        ("cli/script/ScriptCommands.cpp", 'reply.erase("ok");', 'reply.erase("ok");\n        reply.erase("id");'),
    ]),
    Mutant("last-account-deletable", "deleting the last account leaves none", ("fuzz.script",), [
        (LIST, "*this = changed.empty() ? defaults() : Accounts(changed.copy());", "*this = Accounts(changed.copy());"),
    ]),
    # What other users may do with folders, groups and processes.
    Mutant("first-group-overlooked", "a user whose first group it is does not count as a member", ("tests.hostile/UserGroup",), [
        ("linux/posix/TrustedUsers.cpp", "    return !isFirstGroupOfAnother(user, group);", "    return !isFirstGroupOfAnother(user, group) || !name.empty();"),
    ]),
    Mutant("device-folder-of-another", "a folder of the device that belongs to any user is used", ("tests.hostile/ForeignFolder",), [
        ("shell/device/Provision.cpp", "if (const platform::FolderRisk risk = platform::riskOfFolder(path)) {",
         "if (const platform::FolderRisk risk; risk) {"),
    ]),
    Mutant("home-of-a-group", "a document is created in a home that others may change", ("tests.hostile/ForeignFolder",), [
        ("settings/Document.cpp", " && !platform::riskOfFolder(nearestExisting(folder))", " && !nearestExisting(folder).empty()"),
    ]),
    Mutant("device-folder-open-first", "a new folder of the device is open to others", ("tests.shell/Provisioning",), [
        ("shell/device/Provision.cpp", "platform::makeFolders(platform::FileSystem::current(), path, privateMode)",
         "platform::makeFolders(platform::FileSystem::current(), path, 0777)"),
    ]),
    Mutant("open-folder-unreported", "the doctor overlooks a folder that others may change", ("tests.cli/Doctor",), [
        ("cli/doctor/DeviceChecks.cpp", "if (const platform::FolderRisk risk = riskOfRoot(folder))",
         "if (const platform::FolderRisk risk = riskOfRoot(folder); risk && folder.empty())"),
    ]),
    Mutant("advice-unquoted", "what the doctor advises to type is not quoted", ("tests.cli/ShellWord", "tests.cli/Doctor"), [
        ("cli/io/ShellWord.cpp", "    if (isPlain(text))", "    if (isPlain(text) || !text.empty())"),
    ]),
    Mutant("core-dumped", "a crash may leave a core dump", ("tests.hostile/CoreDump",), [
        ("linux/posix/ProcessStart.cpp", "    refuseCoreDumps();\n", "    static_cast<void>(&refuseCoreDumps);\n"),
    ]),
    Mutant("runs-with-foreign-rights", "a program runs set-user-id", ("tests.hostile/SetUserId",), [
        ("linux/posix/ProcessStart.cpp", "if (::getuid() == ::geteuid() && ::getgid() == ::getegid())", "if (::getuid() != ~0U)"),
    ]),
    Mutant("portal-gone-waited-for", "a portal that has ended is waited for", ("tests.hostile/Portal",), [
        ("linux/mail/MailPortalRequest.cpp", "if (auto& code = *static_cast<Response*>(response); !code)",
         "if (auto& code = *static_cast<Response*>(response); code)"),
    ]),
    # The desktop's applications.
    Mutant("entry-not-installed", "an entry's TryExec is not looked at", ("tests.applist/AppListDesktop",), [
        ("linux/applist/DesktopEntry.cpp", "    if (!tried.empty() && !isProgram(tried))\n        return false;\n", ""),
    ]),
    Mutant("entry-not-for-this-desktop", "an entry's NotShowIn is not looked at", ("tests.applist/AppListDesktop",), [
        ("linux/applist/DesktopEntry.cpp", "        if (lists(G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN, *desktop))\n            return false;\n", ""),
    ]),
    Mutant("entry-starts-nothing", "an entry without anything to start is listed", ("tests.applist/AppListDesktop",), [
        ("linux/applist/DesktopEntry.cpp", "isTrue(G_KEY_FILE_DESKTOP_KEY_DBUS_ACTIVATABLE)", "true"),
    ]),
    Mutant("entry-by-foreign-name", "an entry is listed by a key of one desktop", ("tests.applist/AppListDesktop",), [
        ("linux/applist/DesktopEntry.cpp", "localizedText(G_KEY_FILE_DESKTOP_KEY_NAME);",
         "text(\"X-GNOME-FullName\").empty() ? localizedText(G_KEY_FILE_DESKTOP_KEY_NAME) : text(\"X-GNOME-FullName\");"),
    ]),
    Mutant("entry-name-untranslated", "an entry is listed by its name in no language", ("tests.applist/AppListDesktop",), [
        ("linux/applist/DesktopEntry.cpp", "localizedText(G_KEY_FILE_DESKTOP_KEY_NAME);", "text(G_KEY_FILE_DESKTOP_KEY_NAME);"),
    ]),
    Mutant("systems-entries-first", "the system's entries come before the user's", ("tests.applist/AppListDesktopFolders",), [
        ("linux/applist/DesktopFiles.cpp", "folders.emplace_back(*folder);", "folders.insert(folders.end() - 1, *folder);"),
    ]),
    Mutant("last-folder-first", "of the system's folders of entries the last one named comes first", ("tests.applist/AppListDesktopFolders",), [
        ("linux/applist/DesktopFiles.cpp", "folders.emplace_back(*folder);", "folders.insert(folders.begin() + 1, *folder);"),
    ]),
    Mutant("hidden-entry-masks-nothing", "an entry that is hidden does not mask the system's", ("tests.applist/AppListDesktopFolders",), [
        ("linux/applist/DesktopFiles.cpp", "        if (identifiers_.insert(identifier).second)\n",
         "        if (identifiers_.insert(identifier).second || !identifier.empty())\n"),
    ]),
    Mutant("entries-without-end", "any number of entries is looked at", ("tests.hostile/HostileDesktopFiles",), [
        ("linux/applist/DesktopFiles.cpp", "        return names_ <= mostNames;", "        return names_ != 0;"),
    ]),
    Mutant("scaled-folders-unread", "a theme's scaled folders are not looked into", ("tests.applist/AppListDesktop",), [
        ("linux/applist/IconTheme.cpp", '"ScaledDirectories"', '"Scaled"'),
    ]),
    Mutant("scale-of-folders-unread", "a theme's scaled folder counts as one of its unscaled size", ("tests.applist/AppListDesktop",), [
        ("linux/applist/IconTheme.cpp", 'numberOf(*index, group, "Scale", 1)', 'numberOf(*index, group, "Unscaled", 1)'),
    ]),
    Mutant("default-root-by-name", "the user's device root counts as another when it is named", ("tests.files/DeviceRoot",), [
        ("platform/files/DeviceRoot.cpp", "isSameFolder(deviceRoot(), defaultRoot())", "(!deviceRootIsFromEnvironment() && isSameFolder(deviceRoot(), defaultRoot()))"),
    ]),
    Mutant("class-of-another-kind", "a class of the list's name is taken for the list whatever it is", ("tests.apps/AppsListLibrary",), [
        ("apps/AppsListView.cpp", "    return methods ? &methods->sharedApplicationList() : nullptr;",
         "    return found ? &methods->sharedApplicationList() : nullptr;"),
    ]),
]
