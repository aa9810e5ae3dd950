// Observes a name on the distributed centre and prints a line for each notification:
//   NAME|OBJECT or -|USER INFO or -
// With --sample the user info is printed as "same" or "different", as it compares with the sample.
// usage: test-observer NAME [--object OBJECT] [--sample SAMPLE]

#include "platform/runtime/CFNotificationCenter.h"
#include "platform/runtime/MainLoop.h"
#include "tests/support/SampleUserInfo.h"
#include "tests/support/ValueText.h"

#include <cstdio>
#include <optional>
#include <string>

namespace {

std::optional<std::string> sample;

void print(platform::CFNotificationCenter&, void*, std::string_view name, const std::string* object,
           const platform::Dictionary* userInfo) {
    std::string shown = "-";
    if (userInfo && sample)
        shown = *userInfo == wardlock::test::sampleUserInfo(*sample) ? "same" : "different";
    else if (userInfo)
        shown = wardlock::test::text(*userInfo);
    const std::string line = std::string(name) + '|' + (object ? *object : "-") + '|' + shown;
    std::puts(line.c_str());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    std::optional<std::string> object;
    for (int i = 2; i + 1 < argc; i += 2)
        (std::string_view(argv[i]) == "--object" ? object : sample) = argv[i + 1];
    auto& center = platform::CFNotificationCenterGetDistributedCenter();
    platform::CFNotificationCenterAddObserver(center, nullptr, print, argv[1], object ? &*object : nullptr,
                                              platform::CFNotificationSuspensionBehavior::DeliverImmediately);
    std::puts("ready");
    std::fflush(stdout);
    // Until the test ends it.
    while (true)
        platform::MainLoop::shared().runUntil([] { return false; }, std::chrono::minutes(1));
}
