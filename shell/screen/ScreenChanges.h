#pragma once

#include "platform/base/Subscribers.h"
#include "platform/ui/DisplayObserver.h"
#include "shell/screen/PageStack.h"
#include "shell/screen/ScreenObserver.h"

#include <functional>
#include <memory>
#include <vector>

namespace wardlock::shell {

/// Observes the pages' objects, translates their changes to terms of the screen, and notifies the front end
/// when the pages have finished. Main thread only.
class ScreenChanges : public platform::DisplayObserver {
public:
    /// `endEditing` stores what is being typed inside the view.
    ScreenChanges(PageStack& stack, std::function<void(platform::UIView&)> endEditing)
        : stack_(stack), endEditing_(std::move(endEditing)) {}

    /// Notifies the observer until the subscription ends, which the observer outlives.
    platform::Subscription observe(ScreenObserver& observer) { return observers_.add(&observer); }

    void viewChanged(platform::UIView& view) override;
    void controllerChanged(platform::UIViewController& controller) override;
    void listReloaded(platform::UIViewController& page) override;
    void rowReloaded(platform::UIViewController& page, platform::NSIndexPath path) override;
    void rowInserted(platform::UIViewController& page, platform::NSIndexPath path, bool animated) override;
    void endEditing(platform::UIView& view) override { endEditing_(view); }

    /// Changes that the application itself knows of.
    void pages(bool animated) { add({Kind::Pages, nullptr, {}, animated}); }
    void transitionEnded() { add({Kind::TransitionEnded, nullptr, {}, false}); }
    void row(const std::shared_ptr<Page>& page, platform::NSIndexPath path) {
        add({Kind::Row, page, path, false});
    }
    void found(const std::shared_ptr<Page>& page, platform::NSIndexPath path) {
        add({Kind::RowFound, page, path, false});
    }
    void editing() { add({Kind::Editing, nullptr, {}, false}); }
    void notice() { add({Kind::Notice, nullptr, {}, false}); }
    void offer() { add({Kind::Offer, nullptr, {}, false}); }
    void page(const std::shared_ptr<Page>& page) { add({Kind::Page, page, {}, false}); }
    void announced(const Announcement& announcement);
    void notSaved(const std::string& reason);

    /// Notifies the observers of everything that has changed until now, and of what changes while they
    /// are being notified.
    void deliver();

private:
    enum class Kind {
        Pages,
        TransitionEnded,
        Page,
        List,
        Row,
        RowInserted,
        RowFound,
        Content,
        TableRow,
        Overlay,
        Presentation,
        Editing,
        Notice,
        Offer
    };
    struct Change {
        Kind kind;
        std::shared_ptr<Page> page;
        platform::NSIndexPath path;
        bool animated = false;

        bool operator==(const Change&) const = default;
    };

    void add(Change change);
    static void notify(ScreenObserver& observer, const Change& change);
    static void notifyOfPage(ScreenObserver& observer, const Change& change);

    PageStack& stack_;
    std::function<void(platform::UIView&)> endEditing_;
    platform::Subscribers<ScreenObserver*> observers_;
    std::vector<Change> changes_;
    bool delivering_ = false;
};

} // namespace wardlock::shell
