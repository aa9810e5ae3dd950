#pragma once

#include <cstddef>

namespace platform {

/// Throws NSException (NSRangeException) unless the index is below the size.
void checkIndex(std::size_t index, std::size_t size);

} // namespace platform
