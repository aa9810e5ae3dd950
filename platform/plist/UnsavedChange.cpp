#include "platform/plist/UnsavedChange.h"

#include "platform/base/Subscribers.h"

#include <utility>

namespace platform {

namespace {

Subscribers<UnsavedChangeObserver>& observers() {
    // Never destroyed: a change may still fail while the process ends.
    static auto& all = *new Subscribers<UnsavedChangeObserver>;
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
