#pragma once

#include "platform/runtime/Class.h"
#include "specifiers/ViewListController.h"

namespace wardlock {

/// The page of the history of changes: a ChangeLog.
class ChangeLogController : public ViewListController {
public:
    static const platform::Class& theClass();

    ChangeLogController() : ViewListController("Change Log") {}

private:
    std::shared_ptr<platform::UIView> makeView(const platform::CGRect& frame) override;
};

} // namespace wardlock
