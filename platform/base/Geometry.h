#pragma once

namespace platform {

/// Points, sizes and rectangles in points of the screen, origin at the top left.
struct CGPoint {
    double x = 0;
    double y = 0;
    bool operator==(const CGPoint&) const = default;
};

struct CGSize {
    double width = 0;
    double height = 0;
    bool operator==(const CGSize&) const = default;
};

struct CGRect {
    CGPoint origin;
    CGSize size;
    bool operator==(const CGRect&) const = default;
};

inline constexpr CGRect CGRectZero{};

} // namespace platform
