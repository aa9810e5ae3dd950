#pragma once

#include <cstddef>

namespace platform {

/// The position of a row: its section and its row within the section, both from 0.
struct NSIndexPath {
    std::size_t section = 0;
    std::size_t row = 0;
    bool operator==(const NSIndexPath&) const = default;
};

} // namespace platform
