#pragma once

#include "fuzz/Plan.h"
#include "platform/values/Value.h"

namespace wardlock::fuzz {

/// A property-list value of any kind, nested as far as the plan wants, up to a bound.
platform::Value plannedValue(Plan& plan, int level = 0);

} // namespace wardlock::fuzz
