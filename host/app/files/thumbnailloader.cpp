// SPDX-License-Identifier: MIT
#include "host/app/files/thumbnailloader.h"

#include "host/app/files/thumbnailworker.h"
#include "host/importer/metadata/thumbnailreader.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace {

// Milliseconds. The thread ends at once unless open() blocks on a disk that does not respond.
constexpr unsigned long closingLimit = 2000;

// One core is left to the window. At least two, so that a slow picture does not delay the others.
int processCount()
{
    return std::max(2, QThread::idealThreadCount() - 1);
}

}  // namespace

ReaderProcess::Settings ThumbnailLoader::defaultSettings()
{
    ReaderProcess::Settings settings;
    settings.program = QCoreApplication::applicationFilePath();
    settings.option = QString::fromLatin1(thumbnailReaderOption);
    return settings;
}

ThumbnailLoader::ThumbnailLoader(QObject* parent, const ReaderProcess::Settings& settings)
    : QObject(parent)
    , m_thread(new QThread)
    , m_worker(new ThumbnailWorker(settings, processCount()))
    , m_processes(processCount())
{
    qRegisterMetaType<Thumbnail>();
    m_thread->setObjectName(QStringLiteral("thumbnails"));
    m_worker->moveToThread(m_thread);
    connect(m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    connect(m_worker, &ThumbnailWorker::loaded, this, &ThumbnailLoader::handleLoaded);
    connect(m_worker, &ThumbnailWorker::unavailable, this, &ThumbnailLoader::unavailable);
    m_thread->start();
}

ThumbnailLoader::~ThumbnailLoader()
{
    m_thread->quit();
    // A blocked thread is leaked until the program ends.
    if (m_thread->wait(closingLimit))
        delete m_thread;
}

void ThumbnailLoader::setWanted(const QVector<ThumbnailRequest>& files, int pixels)
{
    m_wanted = files;
    std::reverse(m_wanted.begin(), m_wanted.end());
    m_pixels = pixels;
    startNext();
}

void ThumbnailLoader::startNext()
{
    while (!m_wanted.isEmpty() && m_running.size() < m_processes) {
        const ThumbnailRequest file = m_wanted.takeLast();
        if (m_running.contains(file.id))
            continue;
        m_running.insert(file.id);
        QMetaObject::invokeMethod(
            m_worker, [worker = m_worker, file, pixels = m_pixels] { worker->load(file, pixels); },
            Qt::QueuedConnection);
    }
}

void ThumbnailLoader::handleLoaded(qint64 id, int pixels, const Thumbnail& thumbnail)
{
    m_running.remove(id);
    startNext();
    emit thumbnailLoaded(id, pixels, thumbnail);
}
