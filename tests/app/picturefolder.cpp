// SPDX-License-Identifier: MIT
#include "tests/app/picturefolder.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

namespace {

QByteArray encoded(const QImage& image, const char* format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return bytes;
}

// One TIFF directory with the one entry 0x0112 (orientation), in big-endian order, as the EXIF standard lays it out.
QByteArray exifSegment(int orientation)
{
    QByteArray body = QByteArray("Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01", 24);
    body.append('\0').append(static_cast<char>(orientation)).append(QByteArray(6, '\0'));
    const int length = body.size() + 2;
    QByteArray segment("\xff\xe1", 2);
    segment.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xff));
    return segment + body;
}

}  // namespace

QByteArray PictureFolder::write(const QByteArray& name, const QByteArray& content) const
{
    writeFile(file(name), content);
    return file(name);
}

QByteArray PictureFolder::writePng(const QByteArray& name, const QSize& size) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return write(name, encoded(image, "png", -1));
}

QByteArray PictureFolder::jpeg(const QSize& size, int orientation)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
    return encoded(image, "jpeg", 95).insert(2, exifSegment(orientation));
}
