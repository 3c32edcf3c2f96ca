// SPDX-License-Identifier: MIT
#include "host/app/files/thumbnailworker.h"

#include "host/importer/metadata/regularfile.h"
#include "host/importer/metadata/thumbnailpixels.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int cacheBytes = 96 * 1024 * 1024;

}  // namespace

ThumbnailWorker::ThumbnailWorker(const ReaderProcess::Settings& settings, int processes)
    : m_settings(settings)
    , m_maxProcesses(static_cast<size_t>(processes))
    , m_cache(cacheBytes)
{
}

ThumbnailWorker::~ThumbnailWorker() = default;

void ThumbnailWorker::load(qint64 id, const QByteArray& path, int pixels)
{
    RegularFile file = RegularFile::open(path);
    if (!file.descriptor.isValid()) {
        emit loaded(id, pixels, {Thumbnail::Missing, {}});
        return;
    }
    const QByteArray key = ThumbnailCache::key(path, file, pixels);
    const Thumbnail known = m_unavailable ? Thumbnail{Thumbnail::Unreadable, {}} : m_cache.find(key);
    if (known.state != Thumbnail::Pending) {
        emit loaded(id, pixels, known);
        return;
    }
    const int index = m_nextIndex++;
    m_jobs.insert(index, {id, pixels, key});
    freeProcess()->read(index, {std::move(file.descriptor), path.mid(path.lastIndexOf('/') + 1), pixels});
}

// The one with the least to do, which is nothing as long as no more is asked for than there are processes.
ReaderProcess* ThumbnailWorker::freeProcess()
{
    const auto least = std::min_element(m_processes.begin(), m_processes.end(),
                                        [](const auto& a, const auto& b) { return a->pending() < b->pending(); });
    if (least != m_processes.end() && ((*least)->pending() == 0 || m_processes.size() >= m_maxProcesses))
        return least->get();
    m_processes.push_back(std::make_unique<ReaderProcess>(m_settings));
    ReaderProcess* const process = m_processes.back().get();
    connect(process, &ReaderProcess::answered, this,
            [this, process](int index, const QByteArray& answer) { handleAnswer(process, index, answer); });
    connect(process, &ReaderProcess::failed, this, [this](int index) { finish(index, {Thumbnail::Unreadable, {}}); });
    connect(process, &ReaderProcess::unavailable, this, &ThumbnailWorker::handleUnavailable);
    return process;
}

void ThumbnailWorker::handleAnswer(ReaderProcess* process, int index, const QByteArray& answer)
{
    // Given up when another process could not be started.
    if (!m_jobs.contains(index))
        return;
    const std::optional<QImage> image = ThumbnailPixels::fromBytes(answer, m_jobs.value(index).pixels);
    if (!image)
        process->replace();
    if (image && !image->isNull())
        finish(index, {Thumbnail::Loaded, *image});
    else
        finish(index, {Thumbnail::Unreadable, {}});
}

void ThumbnailWorker::handleUnavailable(const QString& reason)
{
    if (!std::exchange(m_unavailable, true))
        emit unavailable(reason);
    const QList<int> indexes = m_jobs.keys();
    for (const int index : indexes)
        finish(index, {Thumbnail::Unreadable, {}});
}

void ThumbnailWorker::finish(int index, const Thumbnail& thumbnail)
{
    const Job job = m_jobs.take(index);
    if (!m_unavailable)
        m_cache.insert(job.key, thumbnail);
    emit loaded(job.id, job.pixels, thumbnail);
}
