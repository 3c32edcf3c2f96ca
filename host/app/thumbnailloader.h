// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/thumbnail.h"
#include "host/app/thumbnailcache.h"

#include <QByteArray>
#include <QObject>
#include <QSet>
#include <QThreadPool>
#include <QVector>

/// A file whose thumbnail is wanted.
struct ThumbnailRequest
{
    qint64 id = 0;    ///< Of the file, free to choose; at most one load of a file runs at a time.
    QByteArray path;  ///< In the file system's bytes.
};

/// Loads thumbnails on threads of its own. GUI thread only.
///
/// Only what is wanted is loaded, in the order wanted: a new wish replaces what has not begun. Destroying the loader
/// waits for the few pictures being decoded at that moment.
class ThumbnailLoader : public QObject
{
    Q_OBJECT

public:
    explicit ThumbnailLoader(QObject* parent = nullptr);
    ~ThumbnailLoader() override;

    /// The files to load next, the most urgent first, to fit \a pixels device pixels.
    void setWanted(const QVector<ThumbnailRequest>& files, int pixels);

signals:
    /// \a pixels is the size that was wanted. May come for a file that is no longer wanted.
    void thumbnailLoaded(qint64 id, int pixels, const Thumbnail& thumbnail);

private:
    void startNext();
    void start(const ThumbnailRequest& file);

    ThumbnailCache m_cache;
    QThreadPool m_pool;
    QVector<ThumbnailRequest> m_wanted;  ///< The most urgent last.
    QSet<qint64> m_running;
    int m_pixels = 0;
};
