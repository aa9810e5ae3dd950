#pragma once

#include "platform/values/Value.h"

#include <string>

namespace wardlock::cli {

/// Returns why a property list cannot be the preferences document, for example "kEnabled is not a boolean";
/// empty when it can. Keys may be missing, and other programs' keys may have any value.
std::string whyNotADocument(const platform::Value& value);

} // namespace wardlock::cli
