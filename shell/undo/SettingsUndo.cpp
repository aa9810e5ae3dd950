#include "shell/undo/SettingsUndo.h"

#include "platform/base/Translation.h"
#include "platform/ui/AnimationClock.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "settings/history/History.h"
#include "settings/history/KeptVersions.h"
#include "shell/screen/OneLine.h"

#include <algorithm>
#include <utility>

namespace wardlock::shell {

namespace {

using Outcome = UndoResult::Outcome;

bool isOfWholeAccount(const Change& change) {
    return change.kind == Change::Kind::AccountAdded || change.kind == Change::Kind::AccountDeleted;
}

/// Returns whether taking a step would change a passcode, which its row does only for a user who knows it.
bool changesSetPasscode(const std::optional<UndoStep>& step) {
    const auto isOfPasscode = [](const Change& change) {
        return change.kind == Change::Kind::TopLevelValue && change.key == kPasscode;
    };
    if (!step || std::ranges::none_of(step->changes, isOfPasscode))
        return false;
    const auto now = document(BundleIdentifier);
    const platform::Value* passcode = now ? now->find(kPasscode) : nullptr;
    return passcode && platform::stringValue(passcode) != "";
}

std::string joined(const std::vector<std::string>& reasons) {
    std::string text;
    for (const std::string& reason : reasons)
        text += (text.empty() ? "" : "; ") + oneLine(reason);
    return text;
}

} // namespace

SettingsUndo::SettingsUndo(Screen& screen, ScreenChanges& changes, ShownAccount& account, PageInput& input,
                           UndoHost host, PageBoundary& boundary)
    : screen_(screen), changes_(changes), account_(account), input_(input), host_(std::move(host)),
      boundary_(boundary), guide_(screen, changes, account, input, boundary),
      subscription_(changes.observe(*this)) {}

InputResult SettingsUndo::undo() {
    return run(Direction::Back);
}

InputResult SettingsUndo::redo() {
    return run(Direction::Again);
}

InputResult SettingsUndo::run(Direction direction) {
    return boundary_.enter([&] {
        input_.endEditing();
        if (account_.leaveIfGone())
            return InputResult::refused("the page is gone");
        if (auto reason = screen_.obstacle())
            return InputResult::refused(*reason);
        if (host_.isLocked())
            return InputResult::refused(lockedReason);
        if (changesSetPasscode(direction == Direction::Back ? undoStep(Whose::Own) : redoStep(Whose::Own))) {
            addRefusal(direction, platform::translated("Undo", "the passcode is changed on its own row"));
            return InputResult::refused("the passcode is changed on its own row");
        }
        undoing_ = true;
        const UndoResult result =
            direction == Direction::Back ? wardlock::undo(Whose::Own) : wardlock::redo(Whose::Own);
        undoing_ = false;
        return finish(result, direction);
    });
}

InputResult SettingsUndo::finish(const UndoResult& result, Direction direction) {
    const std::string name = direction == Direction::Back ? "undo" : "redo";
    switch (result.outcome) {
    case Outcome::Nothing:
        reportThatNothingIsKept();
        return InputResult::refused("there is nothing to " + name);
    case Outcome::Failed:
        return InputResult::refused("the settings could not be saved");
    case Outcome::Refused:
        addRefusal(direction, joined(result.reasons));
        return InputResult::refused("a later change would be lost: " + joined(result.reasons));
    case Outcome::NoDocument:
        addRefusal(direction, joined(result.reasons));
        return InputResult::refused(joined(result.reasons));
    case Outcome::Done:
        break;
    }
    // The pages address accounts by their positions, which mean others now.
    if (std::ranges::any_of(result.changes, isOfWholeAccount))
        account_.leaveForList();
    host_.refresh();
    guide_.lead(ChangedPlace::of(result.changes, direction));
    return InputResult::done();
}

void SettingsUndo::addRefusal(Direction direction, const std::string& reason) {
    screen_.addNotice(platform::filledIn(direction == Direction::Back
                                             ? platform::translated("Notice", "Cannot undo: %1.")
                                             : platform::translated("Notice", "Cannot redo: %1."),
                                         {reason}));
    changes_.notice();
}

/// A user who has just changed something expects that it can be taken back.
void SettingsUndo::reportThatNothingIsKept() {
    const History history;
    const auto state = history.folder().state();
    if (state == platform::VersionFolder::State::Usable || state == platform::VersionFolder::State::Missing)
        return;
    screen_.addNotice(platform::filledIn(platform::translated("Notice", "Changes cannot be taken back: %1."),
                                         {reasonAgainst(history.folder())}));
    changes_.notice();
}

void SettingsUndo::changeAnnounced(const Announcement& announcement) {
    if (!announcement.own)
        return;
    withdraw();
    // A new account is announced by its record, a deletion by the list.
    if (!undoing_ && announcement.key == kAccounts && announcement.object &&
        announcement.object->is(platform::Value::Kind::Array))
        accountsChanged_ = true;
}

void SettingsUndo::proceed() {
    if (std::exchange(accountsChanged_, false))
        offerToUndoDeletion();
    guide_.proceed();
}

void SettingsUndo::offerToUndoDeletion() {
    // An offer to restore damaged settings is worth more.
    const auto step = screen_.offer() ? std::nullopt : undoStep(Whose::Own);
    if (!step)
        return;
    const auto deleted = std::ranges::find(step->changes, Change::Kind::AccountDeleted, &Change::kind);
    if (deleted == step->changes.end())
        return;
    const std::string name = oneLine(deleted->account);
    screen_.setOffer(
        Offer{Offer::Kind::Undo,
              name.empty() ? platform::translated("Notice", "The account was deleted")
                           : platform::filledIn(platform::translated("Notice", "%1 was deleted"), {name})});
    changes_.offer();
    platform::AnimationClock::current().after(platform::AnimationClock::time(offerSeconds),
                                              [this, offer = ++offers_] {
                                                  if (offer == offers_)
                                                      withdraw();
                                              });
}

void SettingsUndo::lock() {
    withdraw();
    guide_.forget();
}

void SettingsUndo::withdraw() {
    if (!screen_.offer() || screen_.offer()->kind != Offer::Kind::Undo)
        return;
    screen_.setOffer(std::nullopt);
    changes_.offer();
}

} // namespace wardlock::shell
