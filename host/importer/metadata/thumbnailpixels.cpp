// SPDX-License-Identifier: MIT
#include "host/importer/metadata/thumbnailpixels.h"

#include <cstring>

namespace {

struct Head
{
    qint32 width;
    qint32 height;
};

constexpr QImage::Format format = QImage::Format_ARGB32_Premultiplied;

}  // namespace

QByteArray thumbnailpixels::toBytes(const QImage& image)
{
    const QImage converted = image.convertToFormat(format);
    const Head head = {converted.width(), converted.height()};
    QByteArray bytes(int(sizeof head + size_t(converted.sizeInBytes())), Qt::Uninitialized);
    memcpy(bytes.data(), &head, sizeof head);
    if (!converted.isNull())  // Lines of four bytes a pixel have nothing between them.
        memcpy(bytes.data() + sizeof head, converted.constBits(), size_t(converted.sizeInBytes()));
    return bytes;
}

std::optional<QImage> thumbnailpixels::fromBytes(const QByteArray& bytes, int side)
{
    Head head = {};
    if (bytes.size() < int(sizeof head))
        return {};
    memcpy(&head, bytes.constData(), sizeof head);
    if (head.width == 0 && head.height == 0)
        return bytes.size() == int(sizeof head) ? std::optional<QImage>(QImage()) : std::nullopt;
    if (head.width < 1 || head.width > side || head.height < 1 || head.height > side)
        return {};
    QImage image(head.width, head.height, format);
    if (image.isNull() || bytes.size() - int(sizeof head) != int(image.sizeInBytes()))
        return {};
    memcpy(image.bits(), bytes.constData() + sizeof head, size_t(image.sizeInBytes()));
    return image;
}
