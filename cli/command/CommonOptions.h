#pragma once

#include "cli/io/Arguments.h"
#include "cli/io/Json.h"
#include "platform/values/Value.h"

namespace wardlock::cli {

inline constexpr Option jsonOption{"--json", "", "print JSON, one value per line"};
inline constexpr Option typedOption{
    "--typed", "", "print JSON like `wardlock plist dump`, which keeps the\nkind of every value"};

/// Returns whether JSON is to be printed, plain or typed.
bool wantsJson(const Arguments& arguments);
/// Returns the value as typed JSON with --typed, as plain JSON otherwise.
Json jsonOf(const Arguments& arguments, const platform::Value* value);

} // namespace wardlock::cli
