// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <cmath>

/// A component of IEC 61966-2-1 (sRGB) without its transfer curve, from 0 to 1 as the component is.
[[nodiscard]] inline double linear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

/// Contrast ratio as WCAG 2.1 defines it, from 1 to 21.
[[nodiscard]] inline double contrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& color) {
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    return (std::fmax(luminance(a), luminance(b)) + 0.05) / (std::fmin(luminance(a), luminance(b)) + 0.05);
}
