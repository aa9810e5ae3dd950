#pragma once

#include "cli/io/Json.h"
#include "platform/values/Value.h"

namespace wardlock::cli {

/// Returns a property-list value as JSON that preserves its kind:
///   {"bool":true} {"int":"-12"} {"real":"1.5"} {"string":"x"} {"data":"BASE64"}
///   {"date":"2001-01-01T00:00:00Z"}
///   {"array":[...]} {"dict":[["key",V],...]}
/// Integers and reals are strings, because many JSON readers round numbers; a real reads back as the same
/// double. Dates are rounded down to the second.
Json typedJson(const platform::Value& value);

/// Returns null for nil.
Json typedJson(const platform::Value* value);

} // namespace wardlock::cli
