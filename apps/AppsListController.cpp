#include "apps/AppsListController.h"

#include "apps/AppsListView.h"

namespace wardlock {

const platform::Class& AppsListController::theClass() {
    static constexpr platform::Class theClass("AppsListController",
                                              &platform::makeInstance<AppsListController>);
    return theClass;
}

std::shared_ptr<platform::UIView> AppsListController::makeView(const platform::CGRect& frame) {
    return AppsListView::initWithFrame(frame);
}

} // namespace wardlock
