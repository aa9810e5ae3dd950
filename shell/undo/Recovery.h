#pragma once

#include "platform/versions/Version.h"
#include "shell/input/InputResult.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"
#include "shell/screen/ShownAccount.h"
#include "shell/undo/UndoHost.h"

#include <optional>

namespace wardlock::shell {

/// Offers the last good version of settings that are damaged or have disappeared. It never restores them by
/// itself. The offer stays until it is taken or refused, or another process repairs the settings. Main thread
/// only.
class Recovery : private ScreenObserver {
public:
    Recovery(Screen& screen, ScreenChanges& changes, ShownAccount& account, UndoHost host,
             PageBoundary& boundary);

    /// Makes the offer where it is due. To be called at the start, and whenever other pages are shown.
    void check();

    /// Replaces the settings by the offered version; a change like any other. Refused, and the offer
    /// withdrawn, where another program has repaired the settings, announced or not.
    InputResult restore();
    /// Withdraws the offer.
    void dismiss();

private:
    void changeAnnounced(const Announcement& announcement) override;
    bool isOffering() const;
    bool isRepaired() const;
    void setOffer(std::optional<Offer> offer);

    Screen& screen_;
    ScreenChanges& changes_;
    ShownAccount& account_;
    UndoHost host_;
    PageBoundary& boundary_;
    /// The offered version.
    std::optional<platform::Version> version_;
    /// Whether the user has refused the offer; the settings have to be good again before the next one.
    bool refused_ = false;
    platform::Subscription subscription_;
};

} // namespace wardlock::shell
