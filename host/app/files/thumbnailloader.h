// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/files/thumbnail.h"
#include "host/importer/metadata/readerprocess.h"

#include <QByteArray>
#include <QObject>
#include <QSet>
#include <QVector>

class QThread;
class ThumbnailWorker;

/// A file whose thumbnail is wanted.
struct ThumbnailRequest
{
    qint64 id = 0;    ///< Of the file, free to choose; at most one load of a file runs at a time.
    QByteArray path;  ///< In the file system's bytes.
    /// Of the thumbnail in that size that the sender has already; the answer is Unchanged if the file still is.
    Thumbnail::Source known = {};
};

/// Loads thumbnails in confined processes, so that a picture can do harm to its own thumbnail at most. GUI thread only,
/// which is never blocked.
///
/// Only what is wanted is loaded, in the order wanted: a new wish replaces what has not begun.
class ThumbnailLoader : public QObject
{
    Q_OBJECT

public:
    /// The running program, which answers thumbnailReaderOption by runThumbnailReader().
    [[nodiscard]] static ReaderProcess::Settings defaultSettings();

    explicit ThumbnailLoader(QObject* parent = nullptr, const ReaderProcess::Settings& settings = defaultSettings());
    /// Ends what is being decoded.
    ~ThumbnailLoader() override;

    /// The files to load next, the most urgent first, to fit \a pixels device pixels.
    void setWanted(const QVector<ThumbnailRequest>& files, int pixels);

signals:
    /// \a pixels is the size that was wanted. May come for a file that is no longer wanted.
    void thumbnailLoaded(qint64 id, int pixels, const Thumbnail& thumbnail);
    /// There are no thumbnails on this system, for \a reason. Emitted once.
    void unavailable(const QString& reason);

private:
    void startNext();
    void handleLoaded(qint64 id, int pixels, const Thumbnail& thumbnail);

    QThread* m_thread;
    ThumbnailWorker* m_worker;  ///< Lives on the thread and ends with it.
    int m_processes;
    QVector<ThumbnailRequest> m_wanted;  ///< The most urgent last.
    QSet<qint64> m_running;              ///< One for each process at most.
    int m_pixels = 0;
};
