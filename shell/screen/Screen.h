#pragma once

#include "platform/services/MFMailComposeViewController.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"
#include "platform/ui/UIWindow.h"
#include "shell/screen/Offer.h"
#include "shell/screen/Overlay.h"
#include "shell/screen/PageStack.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::shell {

/// What the user sees now, from the lowest to the topmost:
/// - the pages, of which the last covers the others;
/// - an alert or the mail sheet over them;
/// - the keypad over everything.
///
/// Reading changes nothing. Alerts, mail sheets and keypads are returned for reading: input to them goes
/// through SheetInput. Main thread only.
class Screen {
public:
    Screen(const std::shared_ptr<platform::UIViewController>& root, PageBoundary& boundary);

    const std::vector<std::shared_ptr<Page>>& pages() const { return stack_.pages(); }
    const std::shared_ptr<Page>& page() const { return stack_.top(); }
    /// The title of the page below; empty on the first page.
    std::string backTitle() const;
    /// Whether a push or pop is being shown.
    bool isInTransition() const { return navigation_->isInTransition(); }

    /// Null for none.
    std::shared_ptr<platform::UIAlertController> alert() const;
    std::shared_ptr<platform::MFMailComposeViewController> composer() const;
    std::optional<Overlay> overlay() const;

    /// Sentences of the application itself, shown until they are dismissed: the outcome of a mail, that the
    /// account shown was deleted, or that a change could not be stored. Empty for none.
    const std::string& notice() const { return notice_; }
    /// Adds a sentence that is not shown yet.
    void addNotice(const std::string& sentence);
    void clearNotice() { notice_.clear(); }

    /// What the application offers to do now; none for nothing.
    const std::optional<Offer>& offer() const { return offer_; }
    void setOffer(std::optional<Offer> offer) { offer_ = std::move(offer); }

    /// Returns the reason why the page accepts no input now; none when it does.
    std::optional<std::string> obstacle() const;
    /// Returns the reason why the alert or mail sheet accepts no input now; none when it does.
    std::optional<std::string> obstacleToSheets() const;

    PageStack& stack() { return stack_; }
    platform::UINavigationController& navigation() const { return *navigation_; }
    const std::shared_ptr<platform::UIWindow>& window() const { return window_; }

private:
    std::shared_ptr<platform::UIViewController> presented() const;

    std::shared_ptr<platform::UINavigationController> navigation_;
    std::shared_ptr<platform::UIWindow> window_;
    PageStack stack_;
    std::string notice_;
    std::optional<Offer> offer_;
};

} // namespace wardlock::shell
