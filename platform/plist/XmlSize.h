#pragma once

#include "platform/values/Value.h"

namespace platform {

/// About how long the value's XML form is: exact but for prolog, numbers, data and what has to be escaped. A
/// text that grows by doubling instead is copied several times over. Counts no further than `most`: shared
/// containers can name more values than any memory holds.
std::size_t xmlSizeEstimate(const Value& root, std::size_t most);

} // namespace platform
