// The enforcing half as a test needs it. It starts as on a device, prints "ready", then a line for each
// change: its contents, and the account in force after it. Ends after as many changes as its first
// argument says; a second one names a restriction whose state in that account is printed too.

#include "platform/runtime/MainLoop.h"
#include "platform/text/Format.h"
#include "settings/Constants.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"
#include "tests/support/TestTimeout.h"

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    const int expected = argc > 1 ? std::atoi(argv[1]) : 1;
    int received = 0;
    wardlock::InitSettingsWithUpdateNameAndCallback(
        wardlock::PostName, [&](const platform::Value* key, const platform::Value* object) {
            ++received;
            std::cout << platform::stringWithFormat("%@ = %@; account %@; tweak %d", key, object,
                                                    wardlock::AccountString(wardlock::kAccountName),
                                                    wardlock::TweakEnabled());
            if (argc > 2)
                std::cout << platform::stringWithFormat("; %@ %d", argv[2], wardlock::AccountBool(argv[2]));
            std::cout << std::endl;
        });
    std::cout << "ready" << std::endl;
    return platform::MainLoop::shared().runUntil([&] { return received >= expected; },
                                                 wardlock::test::testTimeout)
               ? 0
               : 1;
}
