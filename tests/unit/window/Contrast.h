#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace wardlock::test {

/// The relative luminance of the web's accessibility guidelines.
inline double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// The ratio of contrast of the same guidelines, from 1 to 21.
inline double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace wardlock::test
