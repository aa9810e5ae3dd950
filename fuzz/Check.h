#pragma once

#include <cstdio>
#include <cstdlib>

namespace wardlock::fuzz {

/// Ends the process, which is a finding, unless `condition` is true.
inline void check(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace wardlock::fuzz
