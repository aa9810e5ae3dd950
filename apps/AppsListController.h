#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/runtime/Class.h"

namespace wardlock {

/// The page of the restricted applications of one account. It has no rows of its own. Each time it is about
/// to appear it shows a new AppsListView, and so the document as it is now.
class AppsListController : public platform::PSListController {
public:
    static const platform::Class& theClass();

    std::string navigationTitle() const override;
    void viewWillAppear(bool animated) override;
};

} // namespace wardlock
