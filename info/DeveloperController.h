#pragma once

#include "platform/runtime/Class.h"
#include "specifiers/ViewListController.h"

namespace wardlock {

/// The page of the maker's other packages: a DeveloperView, and so a new load of the listing each time.
class DeveloperController : public ViewListController {
public:
    static const platform::Class& theClass();

    DeveloperController() : ViewListController("Other Tweaks") {}

private:
    std::shared_ptr<platform::UIView> makeView(const platform::CGRect& frame) override;
};

} // namespace wardlock
