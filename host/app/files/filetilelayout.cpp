// SPDX-License-Identifier: MIT
#include "host/app/files/filetilelayout.h"

#include <cmath>

namespace {

constexpr int margin = 4;
constexpr int padding = 6;
constexpr int nameHeight = 22;

}  // namespace

FileTileLayout FileTileLayout::of(const QRect& tile)
{
    FileTileLayout layout;
    layout.background = tile.adjusted(margin, margin, -margin, -margin);
    const int left = layout.background.left() + (layout.background.width() - pictureSide) / 2;
    layout.picture = QRect(left, layout.background.top() + padding, pictureSide, pictureSide);
    layout.name = QRect(layout.background.left() + padding, layout.picture.bottom() + 1 + padding,
                        layout.background.width() - 2 * padding, nameHeight);
    return layout;
}

QRectF FileTileLayout::thumbnailRect(const QSize& deviceSize, double scale) const
{
    const QSizeF size = QSizeF(deviceSize) / scale;
    const double x = picture.x() + (picture.width() - size.width()) / 2;
    const double y = picture.y() + (picture.height() - size.height()) / 2;
    return {QPointF(std::round(x * scale) / scale, std::round(y * scale) / scale), size};
}
