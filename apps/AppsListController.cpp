#include "apps/AppsListController.h"

#include "apps/AppsListView.h"

namespace wardlock {
namespace {

constexpr const char* Title = "Apps";

} // namespace

const platform::Class& AppsListController::theClass() {
    static constexpr platform::Class theClass("AppsListController",
                                              &platform::makeInstance<AppsListController>);
    return theClass;
}

std::string AppsListController::navigationTitle() const {
    return Title;
}

void AppsListController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    navigationItem().setTitle(Title);
    setView(AppsListView::initWithFrame(view()->frame()));
}

} // namespace wardlock
