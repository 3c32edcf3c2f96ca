// SPDX-License-Identifier: MIT
#include "widgets/roundedmask.h"

#include <QSize>

#include <cmath>

QRegion roundedMask(const QSize& size, int radius)
{
    QRegion mask(QRect(0, radius, size.width(), size.height() - 2 * radius));
    for (int row = 0; row < radius; ++row) {
        // Where the circle is farthest out within the row: at its inner edge.
        const int rise = radius - row - 1;
        const int inset = static_cast<int>(std::floor(radius - std::sqrt(radius * radius - rise * rise)));
        const int width = size.width() - 2 * inset;
        mask += QRect(inset, row, width, 1);
        mask += QRect(inset, size.height() - 1 - row, width, 1);
    }
    return mask;
}
