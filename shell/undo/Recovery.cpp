#include "shell/undo/Recovery.h"

#include "platform/base/Translation.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/DocumentPath.h"
#include "settings/history/History.h"
#include "settings/history/Undo.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace wardlock::shell {

namespace {

using Outcome = UndoResult::Outcome;

bool isMissing() {
    const std::string path = platform::pathOnDevice(documentPath(BundleIdentifier));
    platform::FileStatus status;
    return static_cast<bool>(platform::FileSystem::current().status(path, platform::Links::Follow, status));
}

} // namespace

Recovery::Recovery(Screen& screen, ScreenChanges& changes, ShownAccount& account, UndoHost host,
                   PageBoundary& boundary)
    : screen_(screen), changes_(changes), account_(account), host_(std::move(host)), boundary_(boundary),
      subscription_(changes.observe(*this)) {}

bool Recovery::isOffering() const {
    return screen_.offer() && screen_.offer()->kind == Offer::Kind::Restore;
}

/// Returns whether another program has replaced the damaged settings since the offer. A page leaves its own
/// key of them, and a process that fills in the defaults has the default accounts: that repairs nothing.
bool Recovery::isRepaired() const {
    const Accounts accounts = Accounts::onDisk();
    if (accounts.empty() || accounts.records() == Accounts::defaults().records())
        return false;
    const History history;
    const std::uint32_t own = platform::ownVersionOrigin().process;
    return std::ranges::any_of(history.versions(), [&](const platform::Version& version) {
        return platform::isOlder(*version_, version) && version.origin.process != own;
    });
}

void Recovery::setOffer(std::optional<Offer> offer) {
    screen_.setOffer(std::move(offer));
    changes_.offer();
}

void Recovery::check() {
    bool isUnreadable = false;
    if (document(BundleIdentifier, isUnreadable)) {
        refused_ = false;
        if (isOffering() && isRepaired())
            setOffer(std::nullopt);
        return;
    }
    // A failing disk says nothing about the settings.
    if (isOffering() || refused_ || isUnreadable)
        return;
    const History history;
    const platform::Version* last = history.lastReadable();
    if (!last)
        return;
    version_ = *last;
    using platform::translated;
    setOffer(Offer{
        Offer::Kind::Restore,
        isMissing()
            ? translated("Notice", "The settings have disappeared. Their last good version can be restored")
            : translated("Notice", "The settings are damaged. Their last good version can be restored")});
}

void Recovery::changeAnnounced(const Announcement& announcement) {
    // A change of a page leaves only its own key of damaged settings: the offer stays.
    if (announcement.own)
        return;
    if (isOffering() && document(BundleIdentifier))
        setOffer(std::nullopt);
    check();
}

InputResult Recovery::restore() {
    return boundary_.enter([&] {
        if (!isOffering())
            return InputResult::refused("there is nothing to restore");
        if (auto reason = screen_.obstacle())
            return InputResult::refused(*reason);
        if (host_.isLocked())
            return InputResult::refused(lockedReason);
        const UndoResult result = isRepaired() ? UndoResult{} : restoreVersion(*version_);
        if (result.outcome == Outcome::Failed)
            return InputResult::refused("the settings could not be saved");
        setOffer(std::nullopt);
        account_.leaveForList();
        host_.refresh();
        if (result.outcome == Outcome::Done)
            return InputResult::done();
        // The version may have been removed; an earlier one may be left.
        check();
        return InputResult::refused("there is nothing to restore");
    });
}

void Recovery::dismiss() {
    boundary_.enter([&] {
        if (!isOffering())
            return;
        refused_ = true;
        setOffer(std::nullopt);
    });
}

} // namespace wardlock::shell
