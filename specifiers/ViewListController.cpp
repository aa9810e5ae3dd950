#include "specifiers/ViewListController.h"

namespace wardlock {

void ViewListController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    navigationItem().setTitle(title_);
    setView(makeView(view()->frame()));
}

} // namespace wardlock
