#pragma once

#include "cli/io/Json.h"
#include "platform/values/Value.h"

namespace wardlock::cli {

/// Returns a property-list value as the JSON that a reader expects: numbers as numbers, a dictionary as an
/// object, data as base64, a date as "2001-01-01T00:00:00Z". A real that JSON lacks (nan, inf) becomes null.
/// typedJson() keeps what this loses.
Json plainJson(const platform::Value& value);

/// Returns null for nil.
Json plainJson(const platform::Value* value);

} // namespace wardlock::cli
