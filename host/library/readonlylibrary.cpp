// SPDX-License-Identifier: MIT
#include "host/library/readonlylibrary.h"

#include "host/library/computer/computerstate.h"
#include "host/library/database/categorytable.h"
#include "host/library/database/filequeries.h"
#include "host/library/database/filesearch.h"
#include "host/library/database/filetable.h"
#include "host/library/database/keywordtable.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarytable.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/roottable.h"
#include "host/library/database/tagtable.h"
#include "host/library/libraryopening.h"
#include "host/library/records/librarytext.h"

#include <QFileInfo>

#include <filesystem>

/// Where files are on this computer at the moment. Looks at each folder once.
class ReadOnlyLibrary::Places
{
public:
    explicit Places(ComputerState& computer)
        : m_mounts(computer.mounts())
    {
    }
    void complete(FileRow& file)
    {
        const QByteArray mount = m_mounts.value(file.rootId);
        file.path = mount.isEmpty() ? file.relativePath : (mount == "/" ? mount : mount + '/') + file.relativePath;
        file.isAway = mount.isEmpty() || isAway(file.path.left(file.path.lastIndexOf('/')), mount);
    }

private:
    /// As an import sees it: an empty folder may be a mount point without its disk. A folder that is gone from one that
    /// is there is not away: its files are missing.
    bool isAway(const QByteArray& folder, const QByteArray& mount)
    {
        const auto known = m_isAway.constFind(folder);
        if (known != m_isAway.constEnd())
            return *known;
        const bool isMount = folder.size() <= mount.size();
        const bool away = (!isMount && isAway(folder.left(folder.lastIndexOf('/')), mount)) ||
                          isEmptyOrUnseen(isMount ? mount : folder, isMount);
        return *m_isAway.insert(folder, away);
    }
    static bool isEmptyOrUnseen(const QByteArray& folder, bool isMount)
    {
        namespace fs = std::filesystem;
        const fs::path path(folder.toStdString());
        std::error_code error;
        if (fs::is_directory(path, error))
            return fs::is_empty(path, error) || error;
        return isMount || fs::symlink_status(path, error).type() != fs::file_type::not_found;
    }

    QHash<qint64, QByteArray> m_mounts;
    QHash<QByteArray, bool> m_isAway;  ///< By folder.
};

ReadOnlyLibrary::Snapshot::Snapshot(ReadOnlyLibrary& reader)
{
    try {
        m_transaction = std::make_unique<LibraryTransaction>(*reader.m_database, LibraryTransaction::Kind::Reading);
    } catch (const LibraryError&) {
        // The reads that follow meet the same failure and answer it.
    }
}

ReadOnlyLibrary::Snapshot::~Snapshot() = default;

ReadOnlyLibrary::ReadOnlyLibrary(std::unique_ptr<LibraryDatabase> database, const QString& id)
    : m_database(std::move(database))
    , m_id(id)
    , m_computer(std::make_unique<ComputerState>(id))
{
}

ReadOnlyLibrary::~ReadOnlyLibrary() = default;

std::unique_ptr<ReadOnlyLibrary> ReadOnlyLibrary::open(const QString& path, QString* error)
{
    try {
        if (!QFileInfo::exists(path))
            throw LibraryError(LibraryStatus::NotOpened, LibraryText::tr("There is no library at that place."));
        std::unique_ptr<LibraryDatabase> database = libraryopening::openForReading(path);
        const QString id = librarytable::id(*database);
        return std::unique_ptr<ReadOnlyLibrary>(new ReadOnlyLibrary(std::move(database), id));
    } catch (const LibraryError& failure) {
        if (error)
            *error = failure.message();
        return nullptr;
    }
}

bool ReadOnlyLibrary::isCurrent(const QString& path)
{
    try {
        return libraryopening::isCurrent(path);
    } catch (const LibraryError&) {
        return false;
    }
}

template <typename Read>
auto ReadOnlyLibrary::guarded(Read read) -> LibraryAnswer<decltype(read())>
{
    try {
        m_database->guard();
        return {read(), {}};
    } catch (const LibraryError& error) {
        return {{}, error.message()};
    }
}

LibraryAnswer<QVector<TagRow>> ReadOnlyLibrary::tags()
{
    return guarded([this] { return tagtable::tags(*m_database); });
}

LibraryAnswer<QVector<CategoryRow>> ReadOnlyLibrary::categories()
{
    return guarded([this] { return categorytable::categories(*m_database); });
}

LibraryAnswer<QVector<TagLink>> ReadOnlyLibrary::tagLinks()
{
    return guarded([this] { return categorytable::links(*m_database); });
}

LibraryAnswer<QVector<RootRow>> ReadOnlyLibrary::roots()
{
    return guarded([this] { return roottable::roots(*m_database); });
}

LibraryAnswer<LibraryTotals> ReadOnlyLibrary::totals()
{
    return guarded([this]() -> LibraryTotals {
        const LibraryTransaction transaction(*m_database, LibraryTransaction::Kind::Reading);
        return {roottable::fileCount(*m_database), tagtable::count(*m_database), tagtable::linkCount(*m_database)};
    });
}

LibraryAnswer<QVector<KeywordRow>> ReadOnlyLibrary::keywordsIgnored()
{
    return guarded([this] { return keywordtable::ignored(*m_database); });
}

LibraryAnswer<qint64> ReadOnlyLibrary::forEachFile(const FileVisitor& visitor)
{
    return guarded([&] {
        Places places(*m_computer);
        qint64 visited = 0;
        filequeries::forEachFile(*m_database, [&](FileRow& file) {
            places.complete(file);
            ++visited;
            return visitor(file);
        });
        return visited;
    });
}

LibraryAnswer<QVector<qint64>> ReadOnlyLibrary::fileIds(const FileQuery& query)
{
    return guarded([&] { return filequeries::fileIds(*m_database, query); });
}

LibraryAnswer<QStringList> ReadOnlyLibrary::unknownNames(const QueryTerm& term)
{
    return guarded([&] {
        const LibraryTransaction transaction(*m_database, LibraryTransaction::Kind::Reading);
        return filesearch::unknownNames(*m_database, term);
    });
}

LibraryAnswer<QVector<FileRow>> ReadOnlyLibrary::files(const QVector<qint64>& ids)
{
    return guarded([&] {
        Places places(*m_computer);
        QVector<FileRow> rows;
        for (qint64 id : ids) {
            if (std::optional<filetable::StoredFile> file = filetable::fileById(*m_database, id)) {
                places.complete(file->row);
                rows.append(file->row);
            }
        }
        return rows;
    });
}

LibraryAnswer<QVector<FileRow>> ReadOnlyLibrary::filesWithTags(const QVector<qint64>& ids)
{
    LibraryAnswer<QVector<FileRow>> answer = files(ids);
    const auto tags = guarded([&] {
        for (FileRow& file : answer.value)
            file.tagIds = filequeries::livingTagsOf(*m_database, file.id);
        return true;
    });
    return {answer.value, answer.error + tags.error};
}

LibraryAnswer<QVector<TagShare>> ReadOnlyLibrary::tagShares(const QVector<qint64>& fileIds)
{
    return guarded([&] { return filequeries::tagSharesOf(*m_database, fileIds); });
}

LibraryAnswer<qint64> ReadOnlyLibrary::fileIdAt(qint64 rootId, const QByteArray& path)
{
    return guarded([&] { return filetable::idByPath(*m_database, rootId, path); });
}

LibraryAnswer<qint64> ReadOnlyLibrary::forEachFileBelow(qint64 rootId, const QByteArray& folder,
                                                        const FileVisitor& visitor)
{
    return guarded([&] {
        qint64 visited = 0;
        filetable::forEachBelow(*m_database, rootId, folder, [&](FileRow& file) {
            ++visited;
            return visitor(file);
        });
        return visited;
    });
}
