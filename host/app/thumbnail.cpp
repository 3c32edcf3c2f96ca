// SPDX-License-Identifier: MIT
#include "host/app/thumbnail.h"

#include <QImageReader>

namespace {

// Decoded at full size this takes half a gigabyte, which is the most that a thumbnail may cost for a moment.
constexpr qint64 maxPixels = 128'000'000;

}  // namespace

Thumbnail Thumbnail::read(QIODevice* device, int pixels)
{
    QImageReader reader(device);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (static_cast<qint64>(size.width()) * size.height() > maxPixels)
        return {Unreadable, {}};
    if (size.isValid() && (size.width() > pixels || size.height() > pixels))
        reader.setScaledSize(size.scaled(pixels, pixels, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    QImage image = reader.read();
    if (image.isNull())
        return {Unreadable, {}};
    // Formats that do not tell their size beforehand arrive here in full.
    if (image.width() > pixels || image.height() > pixels)
        image = image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return {Loaded, image.convertToFormat(QImage::Format_ARGB32_Premultiplied)};
}
