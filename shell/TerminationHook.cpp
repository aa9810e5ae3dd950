#include "shell/TerminationHook.h"

#include "platform/runtime/NSOperationQueue.h"
#include "platform/values/NSException.h"

namespace wardlock::shell {

namespace {

void (*restoreFrontEnd)() = nullptr;

void runTerminationHook() {
    if (restoreFrontEnd)
        restoreFrontEnd();
    if (platform::NSOperationQueue::isMainThread())
        platform::NSOperationQueue::mainQueue().drain();
}

} // namespace

void installTerminationHook(void (*restore)()) {
    restoreFrontEnd = restore;
    platform::setTerminationHook(runTerminationHook);
}

} // namespace wardlock::shell
