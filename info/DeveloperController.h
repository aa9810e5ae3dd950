#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/runtime/Class.h"

namespace wardlock {

/// The page of the maker's other packages. It creates a DeveloperView, and so loads the listing again, each
/// time it is about to appear.
class DeveloperController : public platform::PSListController {
public:
    static const platform::Class& theClass();

    std::string navigationTitle() const override;
    void viewWillAppear(bool animated) override;
};

} // namespace wardlock
