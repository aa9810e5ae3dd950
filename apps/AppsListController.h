#pragma once

#include "platform/runtime/Class.h"
#include "specifiers/ViewListController.h"

namespace wardlock {

/// The page of the restricted applications of one account. Its view is a new AppsListView each time, and so
/// shows the document as it is now.
class AppsListController : public ViewListController {
public:
    static const platform::Class& theClass();

    AppsListController() : ViewListController("Apps") {}

private:
    std::shared_ptr<platform::UIView> makeView(const platform::CGRect& frame) override;
};

} // namespace wardlock
