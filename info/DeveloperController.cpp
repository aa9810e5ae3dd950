#include "info/DeveloperController.h"

#include "info/DeveloperView.h"

namespace wardlock {
namespace {

constexpr const char* Title = "Other Tweaks";

} // namespace

const platform::Class& DeveloperController::theClass() {
    static constexpr platform::Class theClass("DeveloperController",
                                              &platform::makeInstance<DeveloperController>);
    return theClass;
}

std::string DeveloperController::navigationTitle() const {
    return Title;
}

void DeveloperController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    navigationItem().setTitle(Title);
    setView(DeveloperView::initWithFrame(view()->frame()));
}

} // namespace wardlock
