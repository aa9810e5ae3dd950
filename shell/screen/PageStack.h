#pragma once

#include "platform/ui/UINavigationController.h"
#include "shell/screen/Page.h"

#include <memory>
#include <vector>

namespace wardlock::shell {

/// The navigation controller's stack as pages. Main thread only.
class PageStack {
public:
    PageStack(std::shared_ptr<platform::UINavigationController> navigation, PageBoundary& boundary)
        : navigation_(std::move(navigation)), boundary_(boundary) {}

    /// Follows the navigation controller; returns whether anything changed.
    bool follow();
    /// The first page first; never empty once followed.
    const std::vector<std::shared_ptr<Page>>& pages() const { return pages_; }
    const std::shared_ptr<Page>& top() const { return pages_.back(); }
    /// Returns null when the controller is not on a page.
    std::shared_ptr<Page> pageOf(const platform::UIViewController& controller) const;

private:
    std::shared_ptr<platform::UINavigationController> navigation_;
    PageBoundary& boundary_;
    std::vector<std::shared_ptr<Page>> pages_;
};

} // namespace wardlock::shell
