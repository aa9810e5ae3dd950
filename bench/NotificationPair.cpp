#include "bench/NotificationPair.h"

#include "platform/runtime/MainLoop.h"
#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/Keys.h"

#include <chrono>

namespace wardlock::bench {

namespace {

/// Not the product's: no process reloads anything.
constexpr std::string_view post = "benchmark";

void notified(platform::CFNotificationCenter&, void*, std::string_view, const std::string*,
              const platform::Dictionary* userInfo) {
    Listener::saw(platform::boolValue(userInfo ? userInfo->find(ChangeObject) : nullptr));
}

} // namespace

void listenForNotifications() {
    const auto subscription = observeChanges(BundleIdentifier, post, nullptr, notified);
    Listener::ready();
    for (;;)
        platform::MainLoop::shared().runUntil([] { return false; }, std::chrono::hours(1));
}

void announce(bool value) {
    postChange(BundleIdentifier, post, kRestrictSiri, platform::Value(value));
}

} // namespace wardlock::bench
