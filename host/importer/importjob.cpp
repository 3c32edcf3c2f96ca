// SPDX-License-Identifier: MIT
#include "host/importer/importjob.h"

#include "host/importer/metadata/keywordlist.h"
#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/unreadablefiles.h"
#include "host/importer/vanishedfiles.h"
#include "host/library/computer/computerstate.h"
#include "host/library/records/tagname.h"

#include <algorithm>
#include <utility>

namespace {

// Files of one transaction: enough to spread the cost of a commit, few enough that readers of the library barely wait.
constexpr int batchSize = 500;
// UTF-16 units. What is longer is no keyword but damage: a window takes 46 seconds to lay out 15 million of them.
constexpr int longestKeyword = 1000;
// Milliseconds between two reports of progress.
constexpr qint64 progressInterval = 50;

}  // namespace

ImportJob::ImportJob(Library* library, const QByteArray& folder, const ImportOptions& options,
                     const ReaderPool::Settings& settings, const std::atomic_bool& cancelled)
    : m_target(library, cancelled)
    , m_folder(folder)
    , m_options(options)
    , m_settings(settings)
    , m_cancelled(cancelled)
{
}

ImportJob::~ImportJob() = default;

void ImportJob::run()
{
    m_sinceProgress.start();
    if (!walk() || !collectChanged()) {
        end();
        return;
    }
    reportProgress(true);
    if (m_parts.empty())
        conclude();
    else
        startReading();
}

void ImportJob::checkCancelled()
{
    if (m_cancelled && !m_ended && m_pool)
        conclude();
}

bool ImportJob::walk()
{
    const std::optional<QByteArray> folder = canonicalFolder(m_folder);
    if (!folder) {
        m_summary.noSuchFolder = true;
        m_summary.error = tr("There is no such folder");
        return false;
    }
    m_folder = *folder;
    if (!m_target.open(m_folder)) {
        m_summary.error = m_target.error();
        return false;
    }
    m_computer = std::make_unique<ComputerState>(m_target.libraryId());
    m_unreadable = std::make_unique<UnreadableFiles>(*m_computer, m_target.rootId(), m_target.folderInRoot(), m_folder);
    return m_walk.run(m_folder, [this](int found) {
        m_summary.found = found;
        reportProgress();
        return !m_cancelled;
    });
}

bool ImportJob::collectChanged()
{
    for (const FolderWalk::Problem& problem : m_walk.problems())
        noteUnreadable(problem.path, {}, problem.reason);
    // Both lists are in order. Reading all of the library's shows whether its index can be trusted before anything is
    // written: pictures that a damaged one does not find would get into the library a second time.
    const std::vector<FoundPicture>& pictures = m_walk.pictures();
    auto next = pictures.cbegin();
    const auto collectUntil = [&](const auto& isReached) {
        for (; next != pictures.cend() && !isReached(*next); ++next)
            collect(*next, nullptr);
    };
    const bool areRead = m_target.forEachFile([&](const QByteArray& path, const KnownFile& known) {
        collectUntil([&path](const FoundPicture& picture) { return picture.path >= path; });
        if (next != pictures.cend() && next->path == path)
            collect(*next++, &known);
        return !m_cancelled;
    });
    m_summary.error = m_target.error();
    if (!areRead || m_cancelled)
        return false;
    collectUntil([](const FoundPicture&) { return false; });
    return true;
}

void ImportJob::collect(const FoundPicture& picture, const KnownFile* known)
{
    if (isToBeRead(picture, known))
        addReading(picture);
    else
        ++m_done;
}

bool ImportJob::isToBeRead(const FoundPicture& picture, const KnownFile* known)
{
    if (m_options.rereads)
        return true;
    if (m_unreadable->isKnown(picture.path, picture.trialStamp()))
        return false;
    if (!known)
        return true;
    // The library holds the states of the sidecars that could be read.
    FileState state = picture.state();
    state.sidecars.clear();
    for (const FoundSidecar& sidecar : picture.sidecars) {
        if (!m_unreadable->isKnown(sidecar.path, sidecar.trialStamp()))
            state.sidecars += sidecar.stamp;
    }
    return known->state != state || known->readerVersion != metadataReaderVersion;
}

void ImportJob::addReading(const FoundPicture& picture)
{
    const int parts = 1 + picture.sidecars.size();
    for (int position = 0; position < parts; ++position)
        m_parts.push_back({int(m_readings.size()), position});
    m_readings.push_back({&picture, parts, false, QVector<QStringList>(parts), QVector<std::optional<qint64>>(parts),
                          QVector<bool>(parts)});
}

void ImportJob::startReading()
{
    QVector<QByteArray> paths;
    for (const Part& part : m_parts) {
        const FoundPicture& picture = *m_readings.at(size_t(part.reading)).picture;
        paths.append(part.position == 0 ? picture.path : picture.sidecars.at(part.position - 1).path);
    }
    m_pool = std::make_unique<ReaderPool>(m_settings);
    connect(m_pool.get(), &ReaderPool::answered, this, &ImportJob::handleAnswer);
    connect(m_pool.get(), &ReaderPool::failed, this, &ImportJob::fail);
    m_pool->read(paths);
}

void ImportJob::handleAnswer(int index, const MetadataAnswer& answer)
{
    if (m_ended)
        return;
    const Part part = m_parts.at(size_t(index));
    Reading& reading = m_readings.at(size_t(part.reading));
    reading.keywords[part.position] = answer.keywords;
    reading.taken[part.position] = answer.taken;
    if (!answer.error.isEmpty()) {
        const FoundPicture& picture = *reading.picture;
        reading.unreadable = reading.unreadable || part.position == 0;
        if (part.position == 0)
            noteUnreadable(picture.path, picture.trialStamp(), answer.error);
        else
            noteUnreadable(picture.sidecars.at(part.position - 1).path,
                           picture.sidecars.at(part.position - 1).trialStamp(), answer.error);
    } else {
        reading.isRead[part.position] = true;
    }
    if (--reading.missing > 0)
        return;
    completeReading(reading);
    if (m_done == int(m_walk.pictures().size()) || m_cancelled)
        conclude();
    else if (m_batch.size() >= batchSize)
        writeBatch();
}

void ImportJob::completeReading(Reading& reading)
{
    ++m_done;
    reportProgress();
    if (reading.unreadable)
        return;
    ImportedFile file;
    file.path = reading.picture->path;
    file.state = reading.picture->state();
    file.state.sidecars.clear();
    // In the order of the folder, as isToBeRead() compares them; the answers came in any.
    for (int i = 0; i < reading.picture->sidecars.size(); ++i) {
        if (reading.isRead.at(i + 1))
            file.state.sidecars += reading.picture->sidecars.at(i).stamp;
    }
    file.readerVersion = metadataReaderVersion;
    file.keywords = keywordsOf(reading);
    for (const std::optional<qint64>& taken : qAsConst(reading.taken))
        file.taken = file.taken ? file.taken : taken;
    m_batch.append(file);
    reading.keywords.clear();
}

QVector<QString> ImportJob::keywordsOf(const Reading& reading)
{
    KeywordList keywords;
    int refused = 0;
    for (const QStringList& part : reading.keywords) {
        for (const QString& keyword : part) {
            if (keyword.size() > longestKeyword || !tagname::isValid(keyword))
                ++refused;
            else
                keywords.add(keyword);
        }
    }
    if (refused > 0)
        reportSkipped(reading.picture->path,
                      tr("Keywords of more than %1 characters, or with some that no name may have, were left out: %2")
                          .arg(QString::number(longestKeyword), QString::number(refused)));
    return keywords.keywords().toVector();
}

void ImportJob::writeBatch()
{
    if (m_batch.isEmpty())
        return;
    if (!account(m_target.write(std::exchange(m_batch, {}))))
        end();
}

void ImportJob::lookForVanished()
{
    VanishedFiles vanished(m_walk);
    QVector<QByteArray> missing;
    bool goesOn = true;
    const auto forget = [&] {
        goesOn = missing.isEmpty() || !m_options.forgetsMissing || account(m_target.forget(std::exchange(missing, {})));
    };
    const bool areRead = m_target.forEachFile([&](const QByteArray& path, const KnownFile&) {
        if (vanished.add(path) && m_options.forgetsMissing)
            missing.append(path);
        if (missing.size() == batchSize)
            forget();
        return goesOn && !m_cancelled;
    });
    if (!areRead)
        m_summary.error = m_target.error();
    else if (goesOn && !m_cancelled)
        forget();
    m_summary.away = vanished.away();
    m_summary.missing = vanished.missing() - m_summary.removed;
}

bool ImportJob::account(const LibraryResult& result)
{
    if (!result.succeeded() && result.status != LibraryStatus::Cancelled && m_summary.error.isEmpty())
        m_summary.error = result.message;
    m_summary.added += result.numbers.filesAdded;
    m_summary.changed += result.numbers.filesChanged;
    m_summary.removed += result.numbers.filesRemoved;
    return result.succeeded();
}

void ImportJob::noteUnreadable(const QByteArray& path, const QByteArray& stamp, const QString& reason)
{
    if (m_unreadable->note(path, stamp, reason) || m_options.rereads)
        reportSkipped(path, reason);
}

void ImportJob::reportSkipped(const QByteArray& path, const QString& reason)
{
    ++m_summary.skipped;
    emit skipped(path, reason);
}

void ImportJob::reportProgress(bool always)
{
    if (!always && m_sinceProgress.elapsed() < progressInterval)
        return;
    m_sinceProgress.start();
    emit progress(m_done, m_summary.found);
}

void ImportJob::fail(const QString& reason)
{
    if (m_ended)
        return;
    // What was read until then is not read again.
    writeBatch();
    if (m_ended)
        return;
    m_summary.error = reason;
    end();
}

void ImportJob::conclude()
{
    writeBatch();
    if (m_ended)
        return;
    if (account(m_target.settle()) && !m_cancelled)
        lookForVanished();
    end();
}

void ImportJob::end()
{
    if (m_ended)
        return;
    m_ended = true;
    m_summary.cancelled = m_cancelled && m_summary.error.isEmpty();
    if (m_unreadable) {
        const bool complete = m_summary.error.isEmpty() && !m_summary.cancelled;
        m_unreadable->save([this, complete](const QByteArray& path) { return complete && !m_walk.isOutOfSight(path); });
        m_summary.unreadable = m_options.rereads ? 0 : m_unreadable->known();
    }
    m_summary.totals = m_target.totals();
    if (m_summary.error.isEmpty())
        m_summary.error = m_target.error();
    if (m_summary.error.isEmpty() && !m_summary.cancelled)
        reportProgress(true);
    emit finished(m_summary);
}
