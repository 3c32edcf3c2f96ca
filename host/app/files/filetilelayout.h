// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>
#include <QSize>

/// Geometry of one file's tile, in logical pixels.
struct FileTileLayout
{
    static constexpr int pictureSide = 128;  ///< The square that a thumbnail fits into.
    static constexpr QSize tileSize{148, 176};

    QRect background;  ///< Filled if the tile is selected or hovered.
    QRect picture;     ///< The square for the thumbnail.
    QRect name;        ///< One line of text.

    [[nodiscard]] static FileTileLayout of(const QRect& tile);

    /// The rectangle of a thumbnail of \a deviceSize device pixels on a screen of \a scale device pixels per logical
    /// pixel: centred in the square and aligned to device pixels.
    [[nodiscard]] QRectF thumbnailRect(const QSize& deviceSize, double scale) const;
};
