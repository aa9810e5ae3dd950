#pragma once

#include <cstdio>
#include <cstdlib>

namespace wardlock::fuzz {

/// Ends the process, which is a finding, when what must hold does not.
inline void check(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace wardlock::fuzz
