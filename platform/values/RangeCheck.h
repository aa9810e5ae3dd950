#pragma once

#include <cstddef>

namespace platform {

/// Throws NSException (NSRangeException) unless `index` is below `size`.
void checkIndex(std::size_t index, std::size_t size);

} // namespace platform
