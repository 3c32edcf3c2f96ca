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
    qint64 id = 0;    ///< Chosen by the caller; at most one load per id runs at a time.
    QByteArray path;  ///< In the file system's bytes.
    /// Source of the thumbnail of that size that the caller has; the answer is Unchanged if the file still is.
    Thumbnail::Source known = {};
};

/// Loads thumbnails in confined processes, so that a malicious picture affects its own thumbnail only. GUI thread only;
/// never blocks it.
///
/// Loads the requested files in their order. A new request replaces those that have not been started.
class ThumbnailLoader : public QObject
{
    Q_OBJECT

public:
    /// Starts the running program with thumbnailReaderOption, which must call runThumbnailReader().
    [[nodiscard]] static ReaderProcess::Settings defaultSettings();

    explicit ThumbnailLoader(QObject* parent = nullptr, const ReaderProcess::Settings& settings = defaultSettings());
    /// Terminates the reader processes.
    ~ThumbnailLoader() override;

    /// The files to load next, the most urgent first, to fit a square of \a pixels device pixels.
    void setWanted(const QVector<ThumbnailRequest>& files, int pixels);

signals:
    /// \a pixels is the requested size. May be emitted for a file that is no longer requested.
    void thumbnailLoaded(qint64 id, int pixels, const Thumbnail& thumbnail);
    /// No thumbnail can be made on this system, for \a reason. Emitted once.
    void unavailable(const QString& reason);

private:
    void startNext();
    void handleLoaded(qint64 id, int pixels, const Thumbnail& thumbnail);

    QThread* m_thread;
    ThumbnailWorker* m_worker;  ///< Lives on the thread, which deletes it.
    int m_processes;
    QVector<ThumbnailRequest> m_wanted;  ///< The most urgent last.
    QSet<qint64> m_running;              ///< At most one id per process.
    int m_pixels = 0;
};
