#include "info/ChangeLogController.h"

#include "info/ChangeLog.h"

namespace wardlock {
namespace {

constexpr const char* Title = "Change Log";

} // namespace

const platform::Class& ChangeLogController::theClass() {
    static constexpr platform::Class theClass("ChangeLogController",
                                              &platform::makeInstance<ChangeLogController>);
    return theClass;
}

std::string ChangeLogController::navigationTitle() const {
    return Title;
}

void ChangeLogController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    navigationItem().setTitle(Title);
    setView(ChangeLog::initWithFrame(view()->frame()));
}

} // namespace wardlock
