#include "shell/TerminationHook.h"

#include "platform/runtime/NSOperationQueue.h"
#include "platform/values/NSException.h"

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

void installTerminationHook(void (*face)()) {
    faceRite = face;
    platform::setTerminationHook(lastRites);
}

} // namespace wardlock::shell
