#include "tests/support/BlockedSignal.h"

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

namespace wardlock::test {

namespace {

constexpr int chosen = SIGUSR1;

void doNothing(int) {}

sigset_t chosenAlone() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, chosen);
    return set;
}

} // namespace

BlockedSignal::BlockedSignal() {
    // Without the flag that lets an interrupted call continue.
    struct sigaction action {};
    action.sa_handler = doNothing;
    EXPECT_EQ(sigaction(chosen, &action, nullptr), 0);
}

BlockedSignal::~BlockedSignal() {
    EXPECT_NE(std::signal(chosen, SIG_IGN), SIG_ERR);
    const sigset_t set = chosenAlone();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void BlockedSignal::block() const {
    const sigset_t set = chosenAlone();
    EXPECT_EQ(pthread_sigmask(SIG_BLOCK, &set, nullptr), 0);
}

void BlockedSignal::send() const {
    EXPECT_EQ(kill(getpid(), chosen), 0);
}

bool BlockedSignal::isPending() const {
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, chosen) == 1;
}

} // namespace wardlock::test
