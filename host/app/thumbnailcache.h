// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/picturefile.h"
#include "host/app/thumbnail.h"

#include <QByteArray>
#include <QCache>
#include <QMutex>

/// Thumbnails of recently shown files, dropped by age once they exceed a number of bytes. All operations on any thread.
class ThumbnailCache
{
public:
    explicit ThumbnailCache(int maxBytes);

    /// The thumbnail of \a path that fits \a pixels device pixels: from the cache while the file is the same as when it
    /// was decoded, else decoded now.
    [[nodiscard]] Thumbnail thumbnail(const QByteArray& path, int pixels);

private:
    [[nodiscard]] Thumbnail find(const QByteArray& key);
    void insert(const QByteArray& key, const Thumbnail& thumbnail);

    QMutex m_mutex;
    QCache<QByteArray, Thumbnail> m_thumbnails;  ///< Costs in bytes.
};
