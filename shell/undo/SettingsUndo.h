#pragma once

#include "settings/history/Undo.h"
#include "shell/screen/Offer.h"
#include "shell/undo/ChangeGuide.h"
#include "shell/undo/UndoHost.h"

#include <cstdint>
#include <optional>
#include <string>

namespace wardlock::shell {

/// Takes back what the user changed in this process, and offers to do so after a deletion. Taking back is a
/// change like any other: stored in one step and announced. The user is led to the page of the change.
///
/// Each call returns the reason when it is refused. Where later changes would be lost, a notice gives the
/// reason too. So it does for a change of a passcode that is set: the page asks for the current one before it
/// changes it. Main thread only.
class SettingsUndo : private ScreenObserver {
public:
    /// For how long a deletion can be taken back by the offer.
    static constexpr double offerSeconds = 10;

    SettingsUndo(Screen& screen, ScreenChanges& changes, ShownAccount& account, PageInput& input,
                 UndoHost host, PageBoundary& boundary);

    /// Takes the last change back that was not taken back yet. An edited text is stored first, as by any
    /// other input, and is the last change then.
    InputResult undo();
    /// Makes the change again that undo() took back last, unless another one was made since.
    InputResult redo();

    /// Ends the offer and the way to a change. To be called when the pages are locked.
    void lock();
    /// To be called when the pages have settled: offers to take back a deletion, and leads on to a change.
    void proceed();

private:
    using Direction = ChangedPlace::Direction;

    void changeAnnounced(const Announcement& announcement) override;
    InputResult run(Direction direction);
    void addRefusal(Direction direction, const std::string& reason);
    void withdraw();
    InputResult finish(const UndoResult& result, Direction direction);
    void reportThatNothingIsKept();
    void offerToUndoDeletion();

    Screen& screen_;
    ScreenChanges& changes_;
    ShownAccount& account_;
    PageInput& input_;
    UndoHost host_;
    PageBoundary& boundary_;
    ChangeGuide guide_;
    /// Whether undo() is announcing its changes.
    bool undoing_ = false;
    bool accountsChanged_ = false;
    /// Counts the offers: the time of an earlier one does not end a later one.
    std::uint64_t offers_ = 0;
    platform::Subscription subscription_;
};

} // namespace wardlock::shell
