// Posts on the distributed centre and ends at once.
// usage: test-poster NAME [--object OBJECT] [--sample SAMPLE] [--times N]

#include "platform/runtime/CFNotificationCenter.h"
#include "tests/support/SampleUserInfo.h"

#include <map>
#include <string>

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    std::map<std::string, std::string> options;
    for (int i = 2; i + 1 < argc; i += 2)
        options[argv[i]] = argv[i + 1];
    platform::Dictionary userInfo;
    if (options.contains("--sample"))
        userInfo = wardlock::test::sampleUserInfo(options["--sample"]);
    const int times = options.contains("--times") ? std::stoi(options["--times"]) : 1;
    auto& center = platform::CFNotificationCenterGetDistributedCenter();
    for (int i = 0; i < times; ++i)
        platform::CFNotificationCenterPostNotification(
            center, argv[1], options.contains("--object") ? &options["--object"] : nullptr,
            options.contains("--sample") ? &userInfo : nullptr, true);
}
