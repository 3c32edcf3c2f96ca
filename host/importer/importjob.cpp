// SPDX-License-Identifier: MIT
#include "host/importer/importjob.h"

#include "host/importer/metadata/keywordlist.h"
#include "host/importer/metadata/metadataanswer.h"
#include "host/library/library.h"
#include "host/library/libraryreader.h"
#include "host/library/records/importoutcome.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <utility>

namespace {

// Files of one transaction: enough to spread the cost of a commit, few enough that readers of the library barely wait.
constexpr int batchSize = 500;
// Paths looked up in the library at once.
constexpr int lookUpSize = 2000;
// UTF-16 units. What is longer is no keyword but damage: a window takes 46 seconds to lay out 15 million of them.
constexpr int longestKeyword = 1000;
// Milliseconds between two reports of progress.
constexpr qint64 progressInterval = 50;

QByteArray hashOf(const QVector<QString>& keywords)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << keywords;
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

bool exists(const QByteArray& path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

bool isSameStamp(const FileState& a, const FileState& b)
{
    return a.size == b.size && a.modified == b.modified && a.sidecars == b.sidecars;
}

}  // namespace

ImportJob::ImportJob(Library* library, const QByteArray& folder, const ImportOptions& options,
                     const ReaderPool::Settings& settings, const std::atomic_bool& cancelled)
    : m_library(library)
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
    QString error;
    m_known = LibraryReader::open(m_library->path(), &error);
    if (!m_known) {
        fail(error);
        return;
    }
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
    const bool complete = m_walk.run(m_folder, [this](int found) {
        m_summary.found = found;
        reportProgress();
        return !m_cancelled;
    });
    for (const FolderWalk::Problem& problem : m_walk.problems())
        reportSkipped(problem.path, problem.reason);
    return complete;
}

bool ImportJob::collectChanged()
{
    const std::vector<FoundPicture>& pictures = m_walk.pictures();
    for (size_t begin = 0; begin < pictures.size() && !m_cancelled; begin += lookUpSize) {
        const size_t end = std::min(begin + lookUpSize, pictures.size());
        QVector<QByteArray> paths;
        for (size_t i = begin; i < end; ++i)
            paths.append(pictures.at(i).path);
        const QHash<QByteArray, FileState> states = m_known->fileStates(paths);
        if (!m_known->lastError().isEmpty()) {
            m_summary.error = m_known->lastError();
            return false;
        }
        for (size_t i = begin; i < end; ++i) {
            const FoundPicture& picture = pictures.at(i);
            const auto known = states.constFind(picture.path);
            if (!m_options.rereads && known != states.constEnd() && isSameStamp(*known, picture.state())) {
                ++m_done;
                continue;
            }
            addReading(picture);
            if (known != states.constEnd() && !known->content.isEmpty())
                m_knownContents.insert(picture.path, known->content);
        }
    }
    return !m_cancelled;
}

void ImportJob::addReading(const FoundPicture& picture)
{
    const int parts = 1 + picture.sidecars.size();
    for (int position = 0; position < parts; ++position)
        m_parts.push_back({int(m_readings.size()), position});
    m_readings.push_back({&picture, parts, false, QVector<QStringList>(parts), {}});
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
    if (!answer.error.isEmpty()) {
        const FoundPicture& picture = *reading.picture;
        reading.unreadable = reading.unreadable || part.position == 0;
        reportSkipped(part.position == 0 ? picture.path : picture.sidecars.at(part.position - 1).path, answer.error);
    } else if (part.position > 0) {
        reading.sidecarStamps += reading.picture->sidecars.at(part.position - 1).stamp;
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
    const QVector<QString> keywords = keywordsOf(reading);
    ImportedFile file;
    file.path = reading.picture->path;
    file.state = reading.picture->state();
    file.state.sidecars = reading.sidecarStamps;
    file.state.content = hashOf(keywords);
    if (m_knownContents.value(file.path) != file.state.content)
        file.keywords = keywords;
    m_batch.append(file);
    reading.keywords.clear();
}

QVector<QString> ImportJob::keywordsOf(const Reading& reading)
{
    KeywordList keywords;
    int tooLong = 0;
    for (const QStringList& part : reading.keywords) {
        for (const QString& keyword : part) {
            if (keyword.size() > longestKeyword)
                ++tooLong;
            else
                keywords.add(keyword);
        }
    }
    if (tooLong > 0)
        reportSkipped(reading.picture->path, tr("Keywords of more than %1 characters were left out: %2")
                                                 .arg(QString::number(longestKeyword), QString::number(tooLong)));
    return keywords.keywords().toVector();
}

void ImportJob::writeBatch()
{
    if (m_batch.isEmpty())
        return;
    const QVector<ImportedFile> batch = std::exchange(m_batch, {});
    if (!account(m_library->importAndWait(batch)))
        end();
}

void ImportJob::forgetVanished()
{
    QByteArray after;
    for (;;) {
        const QVector<QByteArray> paths = m_known->pathsBelow(m_folder, after, lookUpSize);
        if (!m_known->lastError().isEmpty())
            m_summary.error = m_known->lastError();
        // A damaged index may give the same paths for ever.
        else if (!paths.isEmpty() && !(after < paths.last()))
            m_summary.error = tr("The library is damaged: the list of its files is out of order.");
        if (paths.isEmpty() || m_cancelled || !m_summary.error.isEmpty())
            return;
        after = paths.last();
        const QVector<QByteArray> vanished = vanishedAmong(paths);
        if (!vanished.isEmpty() && !account(m_library->forgetAndWait(vanished)))
            return;
    }
}

QVector<QByteArray> ImportJob::vanishedAmong(const QVector<QByteArray>& paths) const
{
    const std::vector<FoundPicture>& pictures = m_walk.pictures();
    QVector<QByteArray> vanished;
    for (const QByteArray& path : paths) {
        const auto place = std::lower_bound(
            pictures.begin(), pictures.end(), path,
            [](const FoundPicture& picture, const QByteArray& sought) { return picture.path < sought; });
        const bool found = place != pictures.end() && place->path == path;
        if (!found && !m_walk.isOutOfSight(path) && !exists(path))
            vanished.append(path);
    }
    return vanished;
}

bool ImportJob::account(const ImportOutcome& outcome)
{
    if (!outcome.succeeded && m_summary.error.isEmpty())
        m_summary.error = outcome.message;
    m_summary.added += outcome.filesAdded;
    m_summary.changed += outcome.filesChanged;
    m_summary.removed += outcome.filesRemoved;
    return outcome.succeeded;
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
    m_summary.error = reason;
    end();
}

void ImportJob::conclude()
{
    writeBatch();
    if (m_ended)
        return;
    if (!m_cancelled)
        forgetVanished();
    end();
}

void ImportJob::end()
{
    if (m_ended)
        return;
    m_ended = true;
    m_summary.cancelled = m_cancelled && m_summary.error.isEmpty();
    if (m_known) {
        m_summary.totals = m_known->totals();
        if (m_summary.error.isEmpty())
            m_summary.error = m_known->lastError();
    }
    if (m_summary.error.isEmpty() && !m_summary.cancelled)
        reportProgress(true);
    emit finished(m_summary);
}
