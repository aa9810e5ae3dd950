#pragma once

#include "platform/values/Value.h"

namespace platform {

/// Estimates the length of the value's XML form in bytes: exact except for prolog, numbers, data and escapes.
/// A text that grows by doubling instead is copied several times. Counts no further than `most`: shared
/// containers can name more values than fit any memory.
std::size_t xmlSizeEstimate(const Value& root, std::size_t most);

} // namespace platform
