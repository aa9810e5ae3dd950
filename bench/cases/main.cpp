#include "bench/NotificationPair.h"

#include <benchmark/benchmark.h>

#include <string_view>

int main(int count, char** words) {
    if (count == 2 && std::string_view(words[1]) == wardlock::bench::listenForNotificationsVerb)
        wardlock::bench::listenForNotifications();
    benchmark::Initialize(&count, words);
    if (benchmark::ReportUnrecognizedArguments(count, words))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
