#include "shell/LiveRefresh.h"

#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/history/History.h"

namespace wardlock::shell {

LiveRefresh::LiveRefresh(Screen& screen, ScreenChanges& changes, ShownAccount& account,
                         PageBoundary& boundary)
    : screen_(screen), changes_(changes), account_(account), boundary_(boundary),
      subscription_(observeChanges(BundleIdentifier, PostName, this, receive)) {}

void LiveRefresh::receive(platform::CFNotificationCenter&, void* observer, std::string_view,
                          const std::string*, const platform::Dictionary* userInfo) {
    static_cast<LiveRefresh*>(observer)->handleChange(userInfo);
}

void LiveRefresh::handleChange(const platform::Dictionary* userInfo) {
    Announcement announcement;
    announcement.own = boundary_.isEnteredByFrontEnd();
    if (userInfo) {
        announcement.key = platform::stringValue(userInfo->find(ChangeKey)).value_or("");
        if (const platform::Value* object = userInfo->find(ChangeObject))
            announcement.object = *object;
    }
    changes_.announced(announcement);
    if (announcement.own)
        return account_.acceptOwnChange();
    keepForeignVersion();
    needed_ = true;
    if (!boundary_.isInside())
        refreshIfNeeded();
}

void LiveRefresh::refresh() {
    needed_ = true;
    refreshIfNeeded();
    screen_.page()->renewTable();
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
