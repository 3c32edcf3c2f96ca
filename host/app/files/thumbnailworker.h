// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/files/thumbnail.h"
#include "host/importer/metadata/readerprocess.h"

#include <QByteArray>
#include <QHash>
#include <QObject>

#include <memory>
#include <vector>

struct ThumbnailRequest;

/// Opens files and passes them to reader processes, which make the thumbnails. Lives on a thread with an event loop,
/// which it may block while it opens a file. Processes are started on demand and kept.
class ThumbnailWorker : public QObject
{
    Q_OBJECT

public:
    /// At most \a processes at once, each as \a settings says.
    ThumbnailWorker(const ReaderProcess::Settings& settings, int processes);
    ~ThumbnailWorker() override;

    /// Answered by loaded() with the same id and \a pixels.
    void load(const ThumbnailRequest& request, int pixels);

signals:
    void loaded(qint64 id, int pixels, const Thumbnail& thumbnail);
    /// Pictures cannot be decoded on this system, for \a reason; all are Unreadable. Emitted once.
    void unavailable(const QString& reason);

private:
    struct Job
    {
        qint64 id = 0;
        int pixels = 0;
        Thumbnail::Source source;
    };

    ReaderProcess* freeProcess();
    void handleAnswer(ReaderProcess* process, int index, const QByteArray& answer);
    void handleUnavailable(const QString& reason);
    void finish(int index, Thumbnail::State state, const QImage& image = {});

    ReaderProcess::Settings m_settings;
    size_t m_maxProcesses;
    QHash<int, Job> m_jobs;  ///< With the processes, by index.
    int m_nextIndex = 0;
    bool m_unavailable = false;
    std::vector<std::unique_ptr<ReaderProcess>> m_processes;
};
