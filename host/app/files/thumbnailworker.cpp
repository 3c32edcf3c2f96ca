// SPDX-License-Identifier: MIT
#include "host/app/files/thumbnailworker.h"

#include "host/app/files/thumbnailloader.h"
#include "host/importer/metadata/regularfile.h"
#include "host/importer/metadata/thumbnailpixels.h"

#include <algorithm>
#include <utility>

namespace {

bool isSame(const Thumbnail::Source& a, const Thumbnail::Source& b)
{
    return a.modified == b.modified && a.size == b.size;
}

}  // namespace

ThumbnailWorker::ThumbnailWorker(const ReaderProcess::Settings& settings, int processes)
    : m_settings(settings)
    , m_maxProcesses(static_cast<size_t>(processes))
{
}

ThumbnailWorker::~ThumbnailWorker() = default;

void ThumbnailWorker::load(const ThumbnailRequest& request, int pixels)
{
    RegularFile file = RegularFile::open(request.path);
    const Thumbnail::Source source = {file.modified, file.size};
    if (!file.descriptor.isValid()) {
        emit loaded(request.id, pixels, {Thumbnail::Missing, {}});
    } else if (isSame(source, request.known)) {
        emit loaded(request.id, pixels, {Thumbnail::Unchanged, {}, source});
    } else if (m_unavailable) {
        emit loaded(request.id, pixels, {Thumbnail::Unreadable, {}});
    } else {
        const int index = m_nextIndex++;
        m_jobs.insert(index, {request.id, pixels, source});
        const QByteArray name = request.path.mid(request.path.lastIndexOf('/') + 1);
        freeProcess()->read(index, {std::move(file.descriptor), name, pixels});
    }
}

// The process with the fewest pending files: an idle one, as the loader sends no more files than there are processes.
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
    connect(process, &ReaderProcess::failed, this, [this](int index) { finish(index, Thumbnail::Unreadable); });
    connect(process, &ReaderProcess::unavailable, this, &ThumbnailWorker::handleUnavailable);
    return process;
}

void ThumbnailWorker::handleAnswer(ReaderProcess* process, int index, const QByteArray& answer)
{
    // The job was failed when another process could not be started.
    if (!m_jobs.contains(index))
        return;
    const std::optional<QImage> image = thumbnailpixels::fromBytes(answer, m_jobs.value(index).pixels);
    if (!image)
        process->replace();
    if (image && !image->isNull())
        finish(index, Thumbnail::Loaded, *image);
    else
        finish(index, Thumbnail::Unreadable);
}

void ThumbnailWorker::handleUnavailable(const QString& reason)
{
    if (!std::exchange(m_unavailable, true))
        emit unavailable(reason);
    const QList<int> indexes = m_jobs.keys();
    for (const int index : indexes)
        finish(index, Thumbnail::Unreadable);
}

void ThumbnailWorker::finish(int index, Thumbnail::State state, const QImage& image)
{
    const Job job = m_jobs.take(index);
    emit loaded(job.id, job.pixels, {state, image, m_unavailable ? Thumbnail::Source() : job.source});
}
