#include "platform/ui/DisplayObserver.h"

namespace platform {

namespace {

class NoObserver : public DisplayObserver {
    void viewChanged(UIView&) override {}
    void controllerChanged(UIViewController&) override {}
    void listReloaded(UIViewController&) override {}
    void rowReloaded(UIViewController&, NSIndexPath) override {}
    void rowInserted(UIViewController&, NSIndexPath, bool) override {}
    void endEditing(UIView&) override {}
};

DisplayObserver* currentObserver = nullptr;

} // namespace

DisplayObserver::~DisplayObserver() = default;

DisplayObserver& DisplayObserver::current() {
    static NoObserver none;
    return currentObserver ? *currentObserver : none;
}

void DisplayObserver::setCurrent(DisplayObserver* observer) {
    currentObserver = observer;
}

} // namespace platform
