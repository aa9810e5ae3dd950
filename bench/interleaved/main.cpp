// Wardlock and its comparisons, sample by sample in turn: for operations on a disk or another process. Two
// programs that run one after the other would meet different conditions there. The output lines are the
// contender's.
//
//   bench-interleaved page|page-shown|tap FILE
//   bench-interleaved rmw|versions FILE none|fdatasync|full
//   bench-interleaved notify FILE

#include "bench/NotificationPair.h"
#include "bench/Timing.h"
#include "bench/interleaved/Verbs.h"
#include "bench/peers/Peers.h"

#include <string>
#include <vector>

int main(int count, char** words) {
    using namespace wardlock::bench;
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments == std::vector<std::string>{listenForNotificationsVerb})
        listenForNotifications();
    if (arguments == std::vector<std::string>{listenForBareSignalsVerb})
        listenForBareSignals();
    if (arguments.size() < 2)
        return notOffered;
    const std::string& verb = arguments[0];
    if (verb == "page")
        measurePage(arguments[1]);
    else if (verb == "page-shown")
        measureShownPage(arguments[1]);
    else if (verb == "tap")
        measureTap(arguments[1]);
    else if (verb == "rmw" && arguments.size() == 3)
        measureReadModifyWrite(arguments[1], arguments[2]);
    else if (verb == "versions" && arguments.size() == 3)
        measureVersions(arguments[1], arguments[2]);
    else if (verb == "notify")
        measureNotify();
    else
        return notOffered;
    return 0;
}
