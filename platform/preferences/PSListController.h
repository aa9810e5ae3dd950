#pragma once

#include "platform/preferences/PSListSections.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/ui/NSIndexPath.h"
#include "platform/ui/UIViewController.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// A page that is a list of rows built from specifiers. A subclass builds them in specifiers(). The host
/// shows the sections() and reports taps and values. A subclass that shows something else replaces its view.
class WARDLOCK_API PSListController : public UIViewController {
public:
    using Specifiers = std::vector<std::shared_ptr<PSSpecifier>>;

    PSListController();
    ~PSListController() override;

    /// Returns the page's rows; a subclass overrides it to build them when hasSpecifiers() is false.
    virtual const Specifiers& specifiers();
    void setSpecifiers(Specifiers specifiers);
    bool hasSpecifiers() const { return specifiers_.has_value(); }
    /// Drops the list, has specifiers() build it again and notifies the host.
    void reloadSpecifiers();
    /// Makes the host read the row's value again.
    void reloadSpecifier(const PSSpecifier& specifier);
    /// Adds a row at the end of the list.
    void addSpecifier(const std::shared_ptr<PSSpecifier>& specifier, bool animated);

    /// The specifier whose row pushed this page; null for a bundle's first page. The page's title is its name
    /// unless the page sets another.
    const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
    void setSpecifier(std::shared_ptr<PSSpecifier> specifier);

    std::string title() const override { return navigationTitle(); }
    virtual std::string navigationTitle() const;
    /// Builds the list.
    void viewWillAppear(bool animated) override;

    /// Handles a tap on a row: performs a button's action, pushes the detail page of a link or a link list.
    /// Rows of other kinds do nothing here.
    virtual void tableViewDidSelectRowAtIndexPath(NSIndexPath path);
    /// A person starts to drag the list.
    virtual void scrollViewWillBeginDragging() {}

    /// For the host: creates the page that a tap on the row pushes; null where a tap pushes none.
    virtual std::shared_ptr<UIViewController> detailPageForRowAtIndexPath(NSIndexPath path);
    /// For the host: the rows in their sections, valid until the list changes; whether the page shows the
    /// list.
    const PSListSections& sections();
    bool showsList();

protected:
    std::shared_ptr<UIView> loadView() override;

private:
    std::optional<Specifiers> specifiers_;
    std::optional<PSListSections> sections_;
    std::shared_ptr<PSSpecifier> specifier_;
    std::weak_ptr<UIView> listView_;
};

} // namespace platform
