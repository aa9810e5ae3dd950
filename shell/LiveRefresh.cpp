#include "shell/LiveRefresh.h"

#include "settings/ChangeNotification.h"
#include "settings/Constants.h"

#include <cstdint>

namespace wardlock::shell {

namespace {

LiveRefresh* current = nullptr;
/// Identifies the current registration. Earlier registrations receive the notification too and are ignored.
std::uintptr_t registration = 0;

} // namespace

LiveRefresh::LiveRefresh(Screen& screen, ScreenChanges& changes, ShownAccount& account,
                         PageBoundary& boundary)
    : screen_(screen), changes_(changes), account_(account), boundary_(boundary) {
    current = this;
    ++registration;
    // The observer is compared, never dereferenced. NOLINTNEXTLINE(performance-no-int-to-ptr)
    observeChanges(BundleIdentifier, PostName, reinterpret_cast<void*>(registration), receive);
}

LiveRefresh::~LiveRefresh() {
    current = nullptr;
}

void LiveRefresh::receive(platform::CFNotificationCenter&, void* observer, std::string_view,
                          const std::string*, const platform::Dictionary* userInfo) {
    if (current && reinterpret_cast<std::uintptr_t>(observer) == registration)
        current->handleChange(userInfo);
}

void LiveRefresh::handleChange(const platform::Dictionary* userInfo) {
    Announcement announcement;
    announcement.own = boundary_.personIsInside();
    if (userInfo) {
        announcement.key = platform::stringValue(userInfo->find(ChangeKey)).value_or("");
        if (const platform::Value* object = userInfo->find(ChangeObject))
            announcement.object = *object;
    }
    changes_.announced(announcement);
    if (announcement.own)
        return account_.acceptOwnChange();
    needed_ = true;
    if (!boundary_.isInside())
        refreshIfNeeded();
}

void LiveRefresh::refreshIfNeeded() {
    if (!needed_)
        return;
    needed_ = false;
    boundary_.enterFromLoop([&] {
        const bool left = account_.leaveIfGone();
        const auto& pages = screen_.pages();
        for (std::size_t i = 1; i < pages.size(); ++i) {
            if (i == 1 && pages[i]->isList())
                pages[i]->rebuild();
            else if (!left && pages[i]->isList())
                for (const auto path : pages[i]->refreshValues())
                    changes_.row(pages[i], path);
        }
        account_.follow();
    });
}

} // namespace wardlock::shell
