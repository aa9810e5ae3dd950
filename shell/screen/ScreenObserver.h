#pragma once

#include "platform/ui/NSIndexPath.h"
#include "platform/values/Value.h"

#include <optional>
#include <string>

namespace wardlock::shell {

class Page;

/// A change of the settings that was announced on the distributed centre.
struct Announcement {
    std::string key;
    /// None when the announcement carried none.
    std::optional<platform::Value> object;
    /// Whether a page of this process announced it.
    bool own = false;
};

/// A face hears here what a person sees differently from now on. It is told after the pages are done with
/// what they were doing, so everything it reads then is as it is going to stay; repeated changes come once.
/// Main thread only; nothing may be thrown. All optional.
class ScreenObserver {
public:
    virtual ~ScreenObserver() = default;

    /// Pages were pushed or popped; with `animated` the transition is running now.
    virtual void pagesChanged(bool /*animated*/) {}
    /// The push or pop has ended; taps are accepted from now on.
    virtual void transitionEnded() {}
    /// The page's title or bar button, or which kind of page it is.
    virtual void pageChanged(Page&) {}

    /// All rows of a list page. An insertion that is followed by it is told first.
    virtual void listReset(Page&) {}
    virtual void rowChanged(Page&, platform::NSIndexPath) {}
    virtual void rowInserted(Page&, platform::NSIndexPath, bool /*animated*/) {}

    /// The views of a page that is no list were replaced, or one of them looks different.
    virtual void contentChanged(Page&) {}
    /// A cell of the page's table that is being shown.
    virtual void tableRowChanged(Page&, platform::NSIndexPath) {}

    /// The keypad came, went, or looks different.
    virtual void overlayChanged() {}
    /// An alert or the mail sheet came, went, or looks different.
    virtual void presentationChanged() {}
    /// A text row is being edited now, or none any more.
    virtual void editingChanged() {}
    virtual void noticeChanged() {}

    /// Not to be seen, but for those who watch.
    virtual void changeAnnounced(const Announcement&) {}
};

} // namespace wardlock::shell
