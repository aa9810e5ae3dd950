#pragma once

#include "cli/io/Arguments.h"

namespace wardlock::cli {

inline constexpr Option jsonOption{"--json", "", "print JSON, one value a line"};

} // namespace wardlock::cli
