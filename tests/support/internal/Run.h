#pragma once

#include "platform/base/Export.h"

namespace wardlock::tests {

/// Runs the tests of the library that it is linked into; the exit code of the program.
WARDLOCK_API int runTests(int count, char** words);

} // namespace wardlock::tests
