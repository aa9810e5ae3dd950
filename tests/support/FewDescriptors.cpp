#include "tests/support/FewDescriptors.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace wardlock::test {

FewDescriptors::FewDescriptors(rlim_t left) {
    EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &before_), 0);
    // The lowest number that is not in use; those above it are free too.
    const int free = ::dup(STDERR_FILENO);
    ::close(free);
    const rlimit few{static_cast<rlim_t>(free) + left, before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
}

FewDescriptors::~FewDescriptors() {
    EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &before_), 0);
}

} // namespace wardlock::test
