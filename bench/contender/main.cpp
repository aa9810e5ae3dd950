// The program that represents this project in comparisons: one operation a call, results as tab-separated
// lines. It calls what the product calls.
//
//   contender parse|load|serialise|lookup|rss FILE
//   contender save FILE OUT none|fdatasync|full
//   contender rmw FILE none|fdatasync|full           changes FILE
//   contender notify FILE
//   contender applist
//   contender sort NAMESFILE
//   contender propagate FILE none|fdatasync|full     changes a copy beside FILE

#include "bench/NotificationPair.h"
#include "bench/Timing.h"
#include "bench/contender/Verbs.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

int main(int count, char** words) {
    using namespace wardlock::bench;
    const std::vector<std::string> arguments(words + 1, words + count);
    if (arguments == std::vector<std::string>{listenForNotificationsVerb})
        listenForNotifications();
    if (arguments == std::vector<std::string>{"applist"})
        return measureApplicationList(), 0;
    if (arguments.size() < 2)
        return notOffered;
    const std::string& verb = arguments[0];
    if (verb == "listen-propagate")
        return listenForChanges(arguments[1]), 0;

    // The platform's file functions take device paths: with this root they are the machine's.
    setenv("WARDLOCK_DEVICE_ROOT", "/", 1);
    const std::string file = std::filesystem::absolute(arguments[1]);
    const std::string mode = arguments.size() > 2 ? arguments.back() : "";
    if (verb == "parse")
        measureParse(file);
    else if (verb == "load")
        measureLoad(file);
    else if (verb == "serialise")
        measureSerialise(file);
    else if (verb == "rss")
        measurePeakMemory(file);
    else if (verb == "lookup")
        measureLookUp(file);
    else if (verb == "save" && arguments.size() == 4)
        measureSave(file, std::filesystem::absolute(arguments[2]), mode);
    else if (verb == "rmw" && arguments.size() == 3)
        measureReadModifyWrite(file, mode);
    else if (verb == "sort")
        measureSort(file);
    else if (verb == "notify")
        measureNotify();
    else if (verb == "propagate" && arguments.size() == 3)
        measurePropagate(file, mode);
    else
        return notOffered;
    return 0;
}
