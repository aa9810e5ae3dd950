#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace platform {

/// A letter with accents, without upper case, and the letter without them.
struct AccentFolding {
    std::uint32_t letter;
    std::uint32_t base;
};

/// In the order of the letters.
extern const AccentFolding accentFoldings[];
extern const std::size_t accentFoldingCount;

} // namespace platform
