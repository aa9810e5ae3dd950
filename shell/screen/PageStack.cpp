#include "shell/screen/PageStack.h"

#include <algorithm>

namespace wardlock::shell {

bool PageStack::follow() {
    std::vector<std::shared_ptr<Page>> pages;
    for (const auto& controller : navigation_->viewControllers()) {
        auto page = pageOf(*controller);
        pages.push_back(page ? std::move(page) : std::make_shared<Page>(controller, boundary_));
    }
    if (pages == pages_)
        return false;
    // A page that is uncovered is read again.
    if (pages.size() < pages_.size())
        pages.back()->forgetValues();
    pages_ = std::move(pages);
    return true;
}

std::shared_ptr<Page> PageStack::pageOf(const platform::UIViewController& controller) const {
    const auto found =
        std::ranges::find(pages_, &controller, [](const auto& page) { return &page->controller(); });
    return found == pages_.end() ? nullptr : *found;
}

} // namespace wardlock::shell
