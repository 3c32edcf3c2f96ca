// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>
#include <QSize>

/// Where the parts of one file's tile lie. Logical pixels.
struct FileTileLayout
{
    static constexpr int pictureSide = 128;  ///< The square that a thumbnail fits into.
    static constexpr QSize tileSize{148, 176};

    QRect background;  ///< Marks the tile that is selected or under the pointer.
    QRect picture;     ///< The square for the thumbnail.
    QRect name;        ///< One line of text.

    [[nodiscard]] static FileTileLayout of(const QRect& tile);

    /// The rectangle of a thumbnail of \a deviceSize device pixels on a screen of \a scale device pixels per logical
    /// pixel: in the middle of the square and, where nothing is scaled, exactly on device pixels.
    [[nodiscard]] QRectF thumbnailRect(const QSize& deviceSize, double scale) const;
};
