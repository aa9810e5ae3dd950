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

/// Notifies a front end of what the user sees differently from now on. It is called after the pages have
/// finished, so everything it reads then is final; repeated changes come once. Main thread only; nothing may
/// be thrown. All methods are optional.
class ScreenObserver {
public:
    virtual ~ScreenObserver() = default;

    /// Pages were pushed or popped; with `animated` the transition is running now.
    virtual void pagesChanged(bool /*animated*/) {}
    /// The push or pop has ended; taps are accepted from now on.
    virtual void transitionEnded() {}
    /// The page's title, its bar button or its kind changed.
    virtual void pageChanged(Page&) {}

    /// All rows of a list page changed. An insertion before it is reported first.
    virtual void listReset(Page&) {}
    virtual void rowChanged(Page&, platform::NSIndexPath) {}
    virtual void rowInserted(Page&, platform::NSIndexPath, bool /*animated*/) {}
    /// A search has led to this row of the page on top, which the user is now to see.
    virtual void rowFound(Page&, platform::NSIndexPath) {}

    /// The views of a page that is not a list were replaced, or one of them looks different.
    virtual void contentChanged(Page&) {}
    /// A cell of the page's table changed that is being shown.
    virtual void tableRowChanged(Page&, platform::NSIndexPath) {}

    /// The keypad appeared, disappeared, or looks different.
    virtual void overlayChanged() {}
    /// An alert or the mail sheet appeared, disappeared, or looks different.
    virtual void presentationChanged() {}
    /// The editing of a text row began or ended.
    virtual void editingChanged() {}
    virtual void noticeChanged() {}
    virtual void offerChanged() {}

    /// A change was announced. Not for the screen, but for observers such as scripts.
    virtual void changeAnnounced(const Announcement&) {}
    /// A change of a page could not be stored; `reason` is the end of a sentence, without its full stop. The
    /// notice says so as well.
    virtual void changeNotSaved(const std::string& /*reason*/) {}
};

} // namespace wardlock::shell
