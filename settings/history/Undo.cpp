#include "settings/history/Undo.h"

#include "platform/base/Translation.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/DocumentPath.h"
#include "settings/history/ChangeAnnouncement.h"
#include "settings/history/History.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace wardlock {

namespace {

using platform::Dictionary;
using platform::Version;
using platform::VersionAction;
using Outcome = UndoResult::Outcome;

/// The versions that undo() and redo() take back, the next one last. A version is the change that led to it.
struct Stacks {
    std::vector<const Version*> undo;
    std::vector<const Version*> redo;

    Stacks(const History& history, Whose whose) {
        const std::uint32_t own = platform::ownVersionOrigin().process;
        for (const Version& version : history.versions())
            if (whose == Whose::Anyones || version.origin.process == own)
                add(version);
    }

private:
    /// Removes the version that `by` took back. Of several with its number that is the one of the same
    /// process, else the last.
    static void remove(std::vector<const Version*>& stack, const Version& by) {
        const auto isTaken = [&](const Version* other) { return other->number == by.origin.of; };
        const auto isOwn = [&](const Version* other) {
            return isTaken(other) && other->origin.process == by.origin.process;
        };
        auto taken = std::find_if(stack.rbegin(), stack.rend(), isOwn);
        if (taken == stack.rend())
            taken = std::find_if(stack.rbegin(), stack.rend(), isTaken);
        if (taken != stack.rend())
            stack.erase(std::next(taken).base());
    }
    void add(const Version& version) {
        switch (version.origin.action) {
        case VersionAction::Undo:
            remove(undo, version);
            return redo.push_back(&version);
        case VersionAction::Redo:
            remove(redo, version);
            return undo.push_back(&version);
        case VersionAction::Change:
        case VersionAction::Restore:
            redo.clear();
            undo.push_back(&version);
        }
    }
};

/// A version, and the document before and after it.
struct Target {
    const Version* version = nullptr;
    Dictionary before;
    Dictionary after;
    /// The documents after that, the youngest last.
    std::vector<Dictionary> since;
};

/// Returns whether the document no longer has anything of the target: others took it back.
bool isGone(const Target& target) {
    const Dictionary& now = target.since.empty() ? target.after : target.since.back();
    const auto taken = takeBack(target.before, target.after, target.since, now, LaterChanges::Keep).document;
    return taken && *taken == now;
}

std::vector<Dictionary> documentsSince(const History& history, const Version& version) {
    std::vector<Dictionary> documents;
    for (const Version& other : history.versions())
        if (platform::isOlder(version, other))
            if (const auto document = history.document(other))
                documents.push_back(*document);
    return documents;
}

/// Returns the last version that can be compared with the one before, and whose change is still there.
std::optional<Target> lastChange(const History& history, const std::vector<const Version*>& stack) {
    for (std::size_t i = stack.size(); i-- > 0;) {
        const Version* previous = history.previous(*stack[i]);
        const auto before = previous ? history.document(*previous) : std::nullopt;
        const auto after = history.document(*stack[i]);
        if (!before || !after)
            continue;
        // Damaged settings, or none, were replaced by this version. There is nothing to return to, and the
        // change before it is not the last one.
        if (stack[i]->origin.action == VersionAction::Restore && *before == *after)
            return std::nullopt;
        Target target = {stack[i], *before, *after, documentsSince(history, *stack[i])};
        if (!isGone(target))
            return target;
    }
    return std::nullopt;
}

std::string reasonAgainstReading(std::error_code error) {
    using platform::translated;
    return error
               ? platform::filledIn(translated("Undo", "the settings cannot be read: %1"), {error.message()})
               : translated("Undo", "the settings are missing or damaged");
}

/// Replaces the document by what `next` makes of it, and announces what that changed.
UndoResult change(std::string_view identifier, const platform::Versions& versions,
                  const std::function<std::optional<Dictionary>(const Dictionary& now)>& next) {
    UndoResult result;
    result.number = versions.of;
    const auto replace = [&](platform::MutableDictionary& entries) {
        const Dictionary now = entries.copy();
        const auto document = next(now);
        if (!document || *document == now)
            return false;
        result.changes = versions.action == VersionAction::Undo ? differenceOfUndo(now, *document)
                                                                : difference(now, *document);
        entries = platform::MutableDictionary(*document);
        return true;
    };
    // Only a whole version replaces settings that are not there: one change alone would be a document without
    // passcode and accounts.
    const bool restores = versions.action == VersionAction::Restore;
    const platform::Update update = (restores ? platform::updateFile : platform::updateExistingFile)(
        documentPath(identifier), replace, platform::Sync::Full, versions);
    result.error = update.error;
    if (!restores && !update.read) {
        result.outcome = Outcome::NoDocument;
        result.reasons.push_back(reasonAgainstReading(update.error));
        return result;
    }
    if (!update.changed) {
        result.outcome = update.error ? Outcome::Failed : Outcome::Nothing;
        return result;
    }
    result.outcome = update.written ? Outcome::Done : Outcome::Failed;
    if (update.written)
        announceChanges(result.changes, update.dictionary, identifier);
    return result;
}

UndoResult takeBackChange(const std::optional<Target>& target, VersionAction action, LaterChanges later,
                          std::string_view identifier) {
    if (!target)
        return {};
    std::vector<std::string> conflicts;
    UndoResult result =
        change(identifier, {.action = action, .of = target->version->number}, [&](const Dictionary& now) {
            TakingBack taken = takeBack(target->before, target->after, target->since, now, later);
            conflicts = std::move(taken.conflicts);
            return std::move(taken.document);
        });
    if (!conflicts.empty()) {
        result.outcome = Outcome::Refused;
        result.reasons = std::move(conflicts);
    }
    return result;
}

} // namespace

std::optional<UndoStep> undoStep(Whose whose, std::string_view identifier) {
    const History history(identifier);
    const auto target = lastChange(history, Stacks(history, whose).undo);
    if (!target)
        return std::nullopt;
    return UndoStep{target->version->number, difference(target->before, target->after)};
}

std::optional<UndoStep> redoStep(Whose whose, std::string_view identifier) {
    const History history(identifier);
    const auto target = lastChange(history, Stacks(history, whose).redo);
    if (!target)
        return std::nullopt;
    return UndoStep{target->version->number, difference(target->after, target->before)};
}

UndoResult undo(Whose whose, LaterChanges later, std::string_view identifier) {
    const History history(identifier);
    const auto target = lastChange(history, Stacks(history, whose).undo);
    return takeBackChange(target, VersionAction::Undo, later, identifier);
}

UndoResult redo(Whose whose, LaterChanges later, std::string_view identifier) {
    const History history(identifier);
    const auto target = lastChange(history, Stacks(history, whose).redo);
    return takeBackChange(target, VersionAction::Redo, later, identifier);
}

UndoResult restoreVersion(const Version& version, std::string_view identifier) {
    auto document = History(identifier).document(version);
    if (!document)
        return {};
    return change(identifier, {.action = VersionAction::Restore, .of = version.number},
                  [&](const Dictionary&) { return document; });
}

UndoResult restoreVersion(std::uint64_t number, std::string_view identifier) {
    const History history(identifier);
    const Version* version = history.find(number);
    return version ? restoreVersion(*version, identifier) : UndoResult{};
}

} // namespace wardlock
