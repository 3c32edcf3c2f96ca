// SPDX-License-Identifier: MIT
#include "host/app/thumbnailcache.h"

#include <QFile>
#include <QMutexLocker>

namespace {

constexpr int entryOverhead = 256;  // bytes of bookkeeping, roughly

QByteArray cacheKey(const QByteArray& path, const PictureFile::Stamp& stamp, int pixels)
{
    // No path holds a NUL, so the parts cannot run into one another.
    QByteArray key = path;
    for (const qint64 part : {stamp.modified, stamp.size, static_cast<qint64>(pixels)})
        key.append('\0').append(QByteArray::number(part));
    return key;
}

}  // namespace

ThumbnailCache::ThumbnailCache(int maxBytes)
    : m_thumbnails(maxBytes)
{
}

Thumbnail ThumbnailCache::thumbnail(const QByteArray& path, int pixels)
{
    QFile file;
    PictureFile::Stamp stamp;
    if (!PictureFile::open(path, &file, &stamp))
        return {Thumbnail::Missing, {}};
    const QByteArray key = cacheKey(path, stamp, pixels);
    Thumbnail result = find(key);
    if (result.state == Thumbnail::Pending) {
        result = Thumbnail::read(&file, pixels);
        insert(key, result);
    }
    return result;
}

Thumbnail ThumbnailCache::find(const QByteArray& key)
{
    const QMutexLocker lock(&m_mutex);
    const Thumbnail* found = m_thumbnails.object(key);
    return found ? *found : Thumbnail();
}

void ThumbnailCache::insert(const QByteArray& key, const Thumbnail& thumbnail)
{
    const QMutexLocker lock(&m_mutex);
    const int cost = static_cast<int>(thumbnail.image.sizeInBytes()) + key.size() + entryOverhead;
    m_thumbnails.insert(key, new Thumbnail(thumbnail), cost);
}
