#include "tests/support/NoMoreThreads.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace wardlock::test {

namespace {

/// More than a process can address.
constexpr std::size_t impossibleStack = std::size_t{1} << 48;

} // namespace

NoMoreThreads::NoMoreThreads() {
    EXPECT_EQ(pthread_getattr_default_np(&before_), 0);
    pthread_attr_t impossible = before_;
    EXPECT_EQ(pthread_attr_setstacksize(&impossible, impossibleStack), 0);
    EXPECT_EQ(pthread_setattr_default_np(&impossible), 0);
}

NoMoreThreads::~NoMoreThreads() {
    EXPECT_EQ(pthread_setattr_default_np(&before_), 0);
    pthread_attr_destroy(&before_);
}

} // namespace wardlock::test
