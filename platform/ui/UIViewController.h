#pragma once

#include "platform/base/Object.h"
#include "platform/ui/UIBarButtonItem.h"
#include "platform/ui/UIView.h"

#include <memory>
#include <string>

namespace platform {

class UINavigationController;
class UIViewController;

/// What the navigation bar shows for a page.
class WARDLOCK_API UINavigationItem {
public:
    explicit UINavigationItem(UIViewController& owner) : owner_(owner) {}

    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    const std::shared_ptr<UIBarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
    void setRightBarButtonItem(std::shared_ptr<UIBarButtonItem> item);

private:
    UIViewController& owner_;
    std::string title_;
    std::shared_ptr<UIBarButtonItem> rightBarButtonItem_;
};

/// A page, or something presented over a page. The navigation controller owns the pages on its stack, a page
/// what it presents. Main thread only.
class WARDLOCK_API UIViewController : public Object {
public:
    UIViewController();
    ~UIViewController() override;

    virtual std::string title() const { return title_; }
    void setTitle(std::string title);
    UINavigationItem& navigationItem() { return navigationItem_; }

    /// Created by loadView() on the first call.
    const std::shared_ptr<UIView>& view();
    bool isViewLoaded() const { return view_ != nullptr; }
    void setView(std::shared_ptr<UIView> view);

    /// The page will be on top, is on top, will be covered or left, is covered or left. The second and fourth
    /// come when the transition has ended, before a tap is accepted.
    virtual void viewWillAppear(bool /*animated*/) {}
    virtual void viewDidAppear(bool /*animated*/) {}
    virtual void viewWillDisappear(bool /*animated*/) {}
    virtual void viewDidDisappear(bool /*animated*/) {}

    /// Null when the page is not on a stack.
    std::shared_ptr<UINavigationController> navigationController() const {
        return navigationController_.lock();
    }
    const std::shared_ptr<UIViewController>& presentedViewController() const { return presented_; }
    /// Null when this controller is not presented.
    std::shared_ptr<UIViewController> presentingViewController() const { return presenting_.lock(); }
    /// No effect while this controller already presents something.
    void presentViewController(const std::shared_ptr<UIViewController>& controller, bool animated);
    /// Dismisses what this controller presents; if it presents nothing, itself.
    void dismissViewControllerAnimated(bool animated);

protected:
    /// Returns the view of a controller that was given none: empty, the size of the key window.
    virtual std::shared_ptr<UIView> loadView();
    /// This controller was presented and has been dismissed.
    virtual void didDismiss() {}
    void changed();

private:
    friend class UINavigationController;
    friend class UINavigationItem;

    std::string title_;
    UINavigationItem navigationItem_;
    std::shared_ptr<UIView> view_;
    std::weak_ptr<UINavigationController> navigationController_;
    std::shared_ptr<UIViewController> presented_;
    std::weak_ptr<UIViewController> presenting_;
};

} // namespace platform
