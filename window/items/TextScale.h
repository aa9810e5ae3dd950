#pragma once

namespace wardlock::window {

/// The limits of the scale of texts, where 1 is the usual size.
inline constexpr double smallestTextScale = 0.8;
inline constexpr double largestTextScale = 2.5;

/// Whether the number is within the limits; NaN is not.
inline bool isTextScale(double scale) {
    return scale >= smallestTextScale && scale <= largestTextScale;
}

} // namespace wardlock::window
