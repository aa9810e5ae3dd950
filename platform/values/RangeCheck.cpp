#include "platform/values/RangeCheck.h"

#include "platform/values/NSException.h"

namespace platform {

void checkIndex(std::size_t index, std::size_t size) {
    if (index < size)
        return;
    std::string reason = "index " + std::to_string(index) + " beyond bounds ";
    reason += size == 0 ? "for empty array" : "[0 .. " + std::to_string(size - 1) + "]";
    throw NSException(NSRangeException, std::move(reason));
}

} // namespace platform
