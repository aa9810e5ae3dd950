// The comparisons for this project that a machine with its build packages has: libplist, the standard
// containers, the bytes and system calls alone, a bare D-Bus signal. The operations and output lines are the
// contender's.
//
//   bench-peers PEER parse|load|serialise|lookup|rss|rmw|notify FILE [none|fdatasync]

#include "bench/Timing.h"
#include "bench/peers/Peers.h"

#include <string>
#include <vector>

int main(int count, char** words) {
    using namespace wardlock::bench;
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments.size() < 2)
        return notOffered;
    const std::string file = arguments.size() > 2 ? arguments[2] : "";
    const std::string mode = arguments.size() > 3 ? arguments[3] : "none";
    if (arguments[0] == "libplist")
        return measureLibplist(arguments[1], file, mode);
    if (arguments[0] == "containers")
        return measureContainers(arguments[1], file);
    if (arguments[0] == "floor")
        return measureFloor(arguments[1], file, mode);
    if (arguments[0] == "sd-bus")
        return measureBareSignal(arguments[1]);
    return notOffered;
}
