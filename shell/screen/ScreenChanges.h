#pragma once

#include "platform/ui/DisplayObserver.h"
#include "shell/screen/PageStack.h"
#include "shell/screen/ScreenObserver.h"

#include <functional>
#include <memory>
#include <vector>

namespace wardlock::shell {

/// Hears what the pages' objects tell, keeps it in terms of the screen, and tells the face when the pages are
/// done. Main thread only.
class ScreenChanges : public platform::DisplayObserver {
public:
    /// `endEditing` stores what is being typed inside the view.
    ScreenChanges(PageStack& stack, std::function<void(platform::UIView&)> endEditing)
        : stack_(stack), endEditing_(std::move(endEditing)) {}

    /// Not owned; null for none.
    void setObserver(ScreenObserver* observer) { observer_ = observer; }

    void viewChanged(platform::UIView& view) override;
    void controllerChanged(platform::UIViewController& controller) override;
    void listReloaded(platform::UIViewController& page) override;
    void rowReloaded(platform::UIViewController& page, platform::NSIndexPath path) override;
    void rowInserted(platform::UIViewController& page, platform::NSIndexPath path, bool animated) override;
    void endEditing(platform::UIView& view) override { endEditing_(view); }

    /// What the application itself knows to have changed.
    void pages(bool animated) { add({Kind::Pages, nullptr, {}, animated}); }
    void transitionEnded() { add({Kind::TransitionEnded, nullptr, {}, false}); }
    void row(const std::shared_ptr<Page>& page, platform::NSIndexPath path) {
        add({Kind::Row, page, path, false});
    }
    void editing() { add({Kind::Editing, nullptr, {}, false}); }
    void notice() { add({Kind::Notice, nullptr, {}, false}); }
    void announced(const Announcement& announcement);

    /// Tells the face everything that has changed until now, and what changes while it listens.
    void deliver();

private:
    enum class Kind {
        Pages,
        TransitionEnded,
        Page,
        List,
        Row,
        RowInserted,
        Content,
        TableRow,
        Overlay,
        Presentation,
        Editing,
        Notice
    };
    struct Change {
        Kind kind;
        std::shared_ptr<Page> page;
        platform::NSIndexPath path;
        bool animated = false;

        bool operator==(const Change&) const = default;
    };

    void add(Change change);
    void tell(const Change& change);
    void tellOfPage(const Change& change);

    PageStack& stack_;
    std::function<void(platform::UIView&)> endEditing_;
    ScreenObserver* observer_ = nullptr;
    std::vector<Change> changes_;
    bool delivering_ = false;
};

} // namespace wardlock::shell
