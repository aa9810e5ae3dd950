#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/runtime/Class.h"

namespace wardlock {

/// The page of the history of changes. It creates a ChangeLog each time it is about to appear.
class ChangeLogController : public platform::PSListController {
public:
    static const platform::Class& theClass();

    std::string navigationTitle() const override;
    void viewWillAppear(bool animated) override;
};

} // namespace wardlock
