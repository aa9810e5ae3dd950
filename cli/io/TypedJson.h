#pragma once

#include "cli/io/Json.h"
#include "platform/values/Value.h"

namespace wardlock::cli {

/// A property-list value as JSON that keeps what JSON alone would lose, the kind first of all:
///   {"bool":true} {"int":"-12"} {"real":"1.5"} {"string":"x"} {"data":"BASE64"}
///   {"date":"2001-01-01T00:00:00Z"}
///   {"array":[...]} {"dict":[["key",V],...]}
/// Integers and reals are strings, since readers of JSON differ in the numbers they keep; a real reads back
/// as the same double. Dates are given to the second below.
Json typedJson(const platform::Value& value);

/// nil is null.
Json typedJson(const platform::Value* value);

} // namespace wardlock::cli
