// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

#include <optional>

/// The answer of a process that makes thumbnails: width and height (4 bytes each, the machine's order), then the pixels
/// of QImage::Format_ARGB32_Premultiplied, line by line.
namespace thumbnailpixels {

/// A null image says that there is no picture.
[[nodiscard]] QByteArray toBytes(const QImage& image);
/// Nothing when the bytes are no answer, or no image that fits a square of \a side pixels: a process gone wrong may
/// write anything.
[[nodiscard]] std::optional<QImage> fromBytes(const QByteArray& bytes, int side);

}  // namespace thumbnailpixels
