#include "shell/screen/ScreenChanges.h"

#include "platform/ui/UIApplication.h"
#include "platform/ui/UITextField.h"

#include <algorithm>
#include <utility>

namespace wardlock::shell {

using platform::NSIndexPath;
using platform::UIView;
using platform::UIViewController;

namespace {

bool isInKeyWindow(const UIView& view) {
    const auto& window = platform::UIApplication::sharedApplication().keyWindow();
    if (window.get() == &view)
        return true;
    for (auto above = view.superview(); above; above = above->superview())
        if (above == window)
            return true;
    return false;
}

} // namespace

void ScreenChanges::viewChanged(UIView& view) {
    if (isInKeyWindow(view))
        return add({Kind::Overlay, nullptr, {}, false});
    for (const auto& page : stack_.pages()) {
        const auto table = page->shownTable();
        if (const auto path = table ? table->shownRow(view) : std::nullopt)
            return add({Kind::TableRow, page, *path, false});
        if (page->holds(view))
            return add({Kind::Content, page, {}, false});
    }
    // An alert's text field is not in a view; neither is a cell that is not shown yet.
    if (dynamic_cast<platform::UITextField*>(&view))
        add({Kind::Presentation, nullptr, {}, false});
}

void ScreenChanges::controllerChanged(UIViewController& controller) {
    add({Kind::Presentation, nullptr, {}, false});
    if (const auto page = stack_.pageOf(controller)) {
        add({Kind::Page, page, {}, false});
        add({Kind::Content, page, {}, false});
    }
}

void ScreenChanges::listReloaded(UIViewController& controller) {
    const auto page = stack_.pageOf(controller);
    if (!page)
        return;
    page->listWasReloaded();
    std::erase_if(changes_,
                  [&](const Change& change) { return change.kind == Kind::Row && change.page == page; });
    add({Kind::List, page, {}, false});
}

void ScreenChanges::rowReloaded(UIViewController& controller, NSIndexPath path) {
    const auto page = stack_.pageOf(controller);
    if (!page)
        return;
    if (const auto specifier = page->specifier(path))
        page->forgetValue(*specifier);
    add({Kind::Row, page, path, false});
}

void ScreenChanges::rowInserted(UIViewController& controller, NSIndexPath path, bool animated) {
    if (const auto page = stack_.pageOf(controller))
        add({Kind::RowInserted, page, path, animated});
}

void ScreenChanges::announced(const Announcement& announcement) {
    observers_.forEach([&](ScreenObserver* observer) { observer->changeAnnounced(announcement); });
}

void ScreenChanges::notSaved(const std::string& reason) {
    observers_.forEach([&](ScreenObserver* observer) { observer->changeNotSaved(reason); });
}

void ScreenChanges::add(Change change) {
    // A later change replaces an equal earlier one: the state in between is never seen.
    std::erase(changes_, change);
    changes_.push_back(std::move(change));
}

void ScreenChanges::deliver() {
    if (delivering_)
        return;
    delivering_ = true;
    while (!changes_.empty())
        for (const auto& change : std::exchange(changes_, {}))
            observers_.forEach([&](ScreenObserver* observer) { notify(*observer, change); });
    delivering_ = false;
}

void ScreenChanges::notify(ScreenObserver& observer, const Change& change) {
    switch (change.kind) {
    case Kind::Pages:
        return observer.pagesChanged(change.animated);
    case Kind::TransitionEnded:
        return observer.transitionEnded();
    case Kind::Overlay:
        return observer.overlayChanged();
    case Kind::Presentation:
        return observer.presentationChanged();
    case Kind::Editing:
        return observer.editingChanged();
    case Kind::Notice:
        return observer.noticeChanged();
    case Kind::Offer:
        return observer.offerChanged();
    default:
        return notifyOfPage(observer, change);
    }
}

void ScreenChanges::notifyOfPage(ScreenObserver& observer, const Change& change) {
    switch (change.kind) {
    case Kind::Page:
        return observer.pageChanged(*change.page);
    case Kind::List:
        return observer.listReset(*change.page);
    case Kind::Row:
        return observer.rowChanged(*change.page, change.path);
    case Kind::RowInserted:
        return observer.rowInserted(*change.page, change.path, change.animated);
    case Kind::RowFound:
        return observer.rowFound(*change.page, change.path);
    case Kind::TableRow:
        return observer.tableRowChanged(*change.page, change.path);
    default:
        return observer.contentChanged(*change.page);
    }
}

} // namespace wardlock::shell
