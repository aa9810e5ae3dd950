#include "platform/plist/UnsavedChange.h"

#include "platform/base/Subscribers.h"

#include <utility>

namespace platform {

namespace {

Subscribers<UnsavedChangeObserver>& observers() {
    static Subscribers<UnsavedChangeObserver> all;
    return all;
}

} // namespace

Subscription observeUnsavedChanges(UnsavedChangeObserver observer) {
    return observers().add(std::move(observer));
}

void reportUnsavedChange(std::string_view reason) {
    observers().forEach([reason](const UnsavedChangeObserver& observer) { observer(reason); });
}

} // namespace platform
