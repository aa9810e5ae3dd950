#pragma once

#include "tests/support/Environment.h"
#include "tests/support/TemporaryFolder.h"

namespace wardlock::test {

/// While it lives, the environment names the English of the United States as the user's language, and the C
/// library finds it, installed or not. The product asks for the user's collation once in a process: this has
/// to be made before.
class EnglishLocale {
public:
    /// What it changes is put back by `environment`.
    explicit EnglishLocale(Environment& environment);

private:
    TemporaryFolder folder_;
};

} // namespace wardlock::test
