#pragma once

#include "platform/preferences/PSListController.h"

namespace platform {

/// The page of a link list: its choices, one marked. A tap stores the choice through the link list's set
/// action and moves the mark; the page stays.
class WARDLOCK_API PSListItemsController : public PSListController {
public:
    static const Class& theClass();

    ~PSListItemsController() override;

    const Specifiers& specifiers() override;
    void tableViewDidSelectRowAtIndexPath(NSIndexPath path) override;

    /// Returns whether the row has the mark.
    bool isChosen(NSIndexPath path);
};

} // namespace platform
