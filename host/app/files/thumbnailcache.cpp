// SPDX-License-Identifier: MIT
#include "host/app/files/thumbnailcache.h"

#include "host/importer/metadata/regularfile.h"

namespace {

constexpr int entryOverhead = 256;  // bytes of bookkeeping, roughly

}  // namespace

ThumbnailCache::ThumbnailCache(int maxBytes)
    : m_thumbnails(maxBytes)
{
}

QByteArray ThumbnailCache::key(const QByteArray& path, const RegularFile& file, int pixels)
{
    // No path holds a NUL, so the parts cannot run into one another.
    QByteArray key = path;
    for (const qint64 part : {file.modified, file.size, static_cast<qint64>(pixels)})
        key.append('\0').append(QByteArray::number(part));
    return key;
}

Thumbnail ThumbnailCache::find(const QByteArray& key) const
{
    const Thumbnail* found = m_thumbnails.object(key);
    return found ? *found : Thumbnail();
}

void ThumbnailCache::insert(const QByteArray& key, const Thumbnail& thumbnail)
{
    const int cost = static_cast<int>(thumbnail.image.sizeInBytes()) + key.size() + entryOverhead;
    m_thumbnails.insert(key, new Thumbnail(thumbnail), cost);
}
