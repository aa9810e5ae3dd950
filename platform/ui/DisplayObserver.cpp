#include "platform/ui/DisplayObserver.h"

#include "platform/base/CurrentService.h"

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

DisplayObserver& noObserver() {
    static NoObserver none;
    return none;
}

constinit CurrentService<DisplayObserver> currentObserver(noObserver);

} // namespace

DisplayObserver::~DisplayObserver() = default;

DisplayObserver& DisplayObserver::current() {
    return currentObserver.get();
}

void DisplayObserver::setCurrent(DisplayObserver* observer) {
    currentObserver.set(observer);
}

} // namespace platform
