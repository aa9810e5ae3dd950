#pragma once

#include "fuzz/Plan.h"
#include "platform/values/Value.h"

namespace wardlock::fuzz {

/// Returns a property-list value of any kind, nested as deep as the plan chooses, up to a bound.
platform::Value plannedValue(Plan& plan, int level = 0);

} // namespace wardlock::fuzz
