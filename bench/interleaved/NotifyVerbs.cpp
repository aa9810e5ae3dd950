#include "bench/Listener.h"
#include "bench/NotificationPair.h"
#include "bench/PrivateDevice.h"
#include "bench/interleaved/Verbs.h"
#include "bench/peers/Peers.h"

namespace wardlock::bench {

void measureNotify() {
    const PrivateDevice device;
    BareSignal signal;
    Listener own({listenForNotificationsVerb});
    Listener other({listenForBareSignalsVerb});
    Listener::measureInterleaved(
        {{"notify", "project", "wardlock"}, own, announce},
        {{"notify", "peer", "D-Bus signal (sd-bus)"}, other, [&](bool value) { signal.post(value); }});
}

} // namespace wardlock::bench
