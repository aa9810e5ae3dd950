#include "info/ChangeLogController.h"

#include "info/ChangeLog.h"

namespace wardlock {

const platform::Class& ChangeLogController::theClass() {
    static constexpr platform::Class theClass("ChangeLogController",
                                              &platform::makeInstance<ChangeLogController>);
    return theClass;
}

std::shared_ptr<platform::UIView> ChangeLogController::makeView(const platform::CGRect& frame) {
    return ChangeLog::initWithFrame(frame);
}

} // namespace wardlock
