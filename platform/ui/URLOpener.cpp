#include "platform/ui/URLOpener.h"

#include "platform/base/CurrentService.h"

namespace platform {

namespace {

constinit CurrentService<URLOpener> currentOpener(URLOpener::native);

} // namespace

URLOpener::~URLOpener() = default;

URLOpener& URLOpener::current() {
    return currentOpener.get();
}

void URLOpener::setCurrent(URLOpener* opener) {
    currentOpener.set(opener);
}

} // namespace platform
