#include "shell/LastRites.h"

#include "platform/foundation/NSException.h"
#include "platform/foundation/NSOperationQueue.h"

namespace wardlock::shell {

namespace {

void (*faceRite)() = nullptr;

void lastRites() {
    if (faceRite)
        faceRite();
    if (platform::NSOperationQueue::isMainThread())
        platform::NSOperationQueue::mainQueue().drain();
}

} // namespace

void installLastRites(void (*face)()) {
    faceRite = face;
    platform::setLastRites(lastRites);
}

} // namespace wardlock::shell
