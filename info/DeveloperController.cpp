#include "info/DeveloperController.h"

#include "info/DeveloperView.h"

namespace wardlock {

const platform::Class& DeveloperController::theClass() {
    static constexpr platform::Class theClass("DeveloperController",
                                              &platform::makeInstance<DeveloperController>);
    return theClass;
}

std::shared_ptr<platform::UIView> DeveloperController::makeView(const platform::CGRect& frame) {
    return DeveloperView::initWithFrame(frame);
}

} // namespace wardlock
