// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/files/thumbnail.h"

#include <QByteArray>
#include <QCache>

struct RegularFile;

/// Thumbnails of recently shown files, dropped by age once they exceed a number of bytes.
class ThumbnailCache
{
public:
    explicit ThumbnailCache(int maxBytes);

    /// What a thumbnail is kept under: the file at \a path in the state in which it was opened as \a file, and the size
    /// in device pixels.
    [[nodiscard]] static QByteArray key(const QByteArray& path, const RegularFile& file, int pixels);
    /// Pending when it is not there.
    [[nodiscard]] Thumbnail find(const QByteArray& key) const;
    void insert(const QByteArray& key, const Thumbnail& thumbnail);

private:
    QCache<QByteArray, Thumbnail> m_thumbnails;  ///< Costs in bytes.
};
