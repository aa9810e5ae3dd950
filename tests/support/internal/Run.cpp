#include "tests/support/internal/Run.h"

#include <gtest/gtest.h>

namespace wardlock::tests {

int runTests(int count, char** words) {
    testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}

} // namespace wardlock::tests
