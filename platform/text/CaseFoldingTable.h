#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace platform {

/// Every `step`-th character from `first` to `last` folds to the character `delta` further on.
struct CaseFoldingRange {
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t step;
    std::int32_t delta;
};

/// Unicode's simple case foldings, in order, without overlaps.
extern const CaseFoldingRange caseFoldingRanges[];
extern const std::size_t caseFoldingRangeCount;

} // namespace platform
