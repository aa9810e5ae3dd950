#include "cli/io/Signals.h"

#include <gtest/gtest.h>

#include <csignal>
#include <poll.h>

using wardlock::cli::Signals;

namespace {

bool isBlocked(int signal) {
    sigset_t mask;
    return sigprocmask(SIG_SETMASK, nullptr, &mask) == 0 && sigismember(&mask, signal) == 1;
}

TEST(Signals, MakeADescriptorReadableUntilTheyAreRead) {
    const Signals signals{SIGUSR1};
    pollfd watched{signals.descriptor(), POLLIN, 0};
    EXPECT_EQ(poll(&watched, 1, 0), 0);
    EXPECT_EQ(std::raise(SIGUSR1), 0);
    EXPECT_EQ(poll(&watched, 1, 0), 1);
    signals.take();
    EXPECT_EQ(poll(&watched, 1, 0), 0);
}

TEST(Signals, LeaveTheMaskAsItWas) {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGUSR1);
    ASSERT_EQ(sigprocmask(SIG_BLOCK, &set, nullptr), 0);
    {
        const Signals signals{SIGUSR1, SIGUSR2};
        EXPECT_TRUE(isBlocked(SIGUSR1));
        EXPECT_TRUE(isBlocked(SIGUSR2));
    }
    EXPECT_TRUE(isBlocked(SIGUSR1)) << "the parent of this process has blocked it";
    EXPECT_FALSE(isBlocked(SIGUSR2));
}

} // namespace
