// SPDX-License-Identifier: MIT
#include "host/library/libraryreader.h"

#include "host/library/computer/computerstate.h"
#include "host/library/database/categorytable.h"
#include "host/library/database/filequeries.h"
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

/// Where the roots are on this computer at the moment.
class LibraryReader::Places
{
public:
    explicit Places(ComputerState& computer)
        : m_mounts(computer.mounts())
    {
    }
    void complete(FileRow& file)
    {
        const QByteArray mount = m_mounts.value(file.rootId);
        file.isAway = !isThere(file.rootId, mount);
        file.path = mount.isEmpty() ? file.relativePath : (mount == "/" ? mount : mount + '/') + file.relativePath;
    }

private:
    bool isThere(qint64 rootId, const QByteArray& mount)
    {
        const auto known = m_isThere.constFind(rootId);
        if (known != m_isThere.constEnd())
            return *known;
        const std::filesystem::path folder(mount.toStdString());
        std::error_code error;
        // An empty folder may be a mount point without its disk.
        const bool found = std::filesystem::is_directory(folder, error) && !std::filesystem::is_empty(folder, error);
        return *m_isThere.insert(rootId, found);
    }

    QHash<qint64, QByteArray> m_mounts;
    QHash<qint64, bool> m_isThere;
};

LibraryReader::Snapshot::Snapshot(LibraryReader& reader)
{
    try {
        m_transaction = std::make_unique<LibraryTransaction>(*reader.m_database, LibraryTransaction::Kind::Reading);
    } catch (const LibraryError&) {
        // The reads that follow meet the same failure and answer it.
    }
}

LibraryReader::Snapshot::~Snapshot() = default;

LibraryReader::LibraryReader(std::unique_ptr<LibraryDatabase> database, const QString& id)
    : m_database(std::move(database))
    , m_id(id)
    , m_computer(std::make_unique<ComputerState>(id))
{
}

LibraryReader::~LibraryReader() = default;

std::unique_ptr<LibraryReader> LibraryReader::open(const QString& path, QString* error)
{
    try {
        if (!QFileInfo::exists(path))
            throw LibraryError(LibraryStatus::NotOpened, LibraryText::tr("There is no library at that place."));
        std::unique_ptr<LibraryDatabase> database = libraryopening::openForReading(path);
        const QString id = librarytable::id(*database);
        return std::unique_ptr<LibraryReader>(new LibraryReader(std::move(database), id));
    } catch (const LibraryError& failure) {
        if (error)
            *error = failure.message();
        return nullptr;
    }
}

bool LibraryReader::isCurrent(const QString& path)
{
    try {
        return libraryopening::isCurrent(path);
    } catch (const LibraryError&) {
        return false;
    }
}

template <typename Read>
auto LibraryReader::guarded(Read read) -> LibraryAnswer<decltype(read())>
{
    try {
        return {read(), {}};
    } catch (const LibraryError& error) {
        return {{}, error.message()};
    }
}

LibraryAnswer<QVector<TagRow>> LibraryReader::tags()
{
    return guarded([this] { return tagtable::tags(*m_database); });
}

LibraryAnswer<QVector<CategoryRow>> LibraryReader::categories()
{
    return guarded([this] { return categorytable::categories(*m_database); });
}

LibraryAnswer<QVector<TagLink>> LibraryReader::tagLinks()
{
    return guarded([this] { return categorytable::links(*m_database); });
}

LibraryAnswer<QVector<RootRow>> LibraryReader::roots()
{
    return guarded([this] { return roottable::roots(*m_database); });
}

LibraryAnswer<LibraryTotals> LibraryReader::totals()
{
    return guarded([this]() -> LibraryTotals {
        const LibraryTransaction transaction(*m_database, LibraryTransaction::Kind::Reading);
        return {roottable::fileCount(*m_database), tagtable::count(*m_database), tagtable::linkCount(*m_database),
                keywordtable::countIgnored(*m_database)};
    });
}

LibraryAnswer<QVector<KeywordRow>> LibraryReader::keywordsIgnored()
{
    return guarded([this] { return keywordtable::ignored(*m_database); });
}

LibraryAnswer<qint64> LibraryReader::forEachFile(const FileVisitor& visitor)
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

LibraryAnswer<QVector<qint64>> LibraryReader::fileIds(const FileQuery& query)
{
    return guarded([&] { return filequeries::fileIds(*m_database, query); });
}

LibraryAnswer<QVector<FileRow>> LibraryReader::files(const QVector<qint64>& ids)
{
    return guarded([&] {
        Places places(*m_computer);
        QVector<FileRow> rows;
        for (qint64 id : ids) {
            if (std::optional<FileRow> row = filetable::fileById(*m_database, id)) {
                places.complete(*row);
                rows.append(*row);
            }
        }
        return rows;
    });
}

LibraryAnswer<QHash<QByteArray, KnownFile>> LibraryReader::fileStates(qint64 rootId, const QVector<QByteArray>& paths)
{
    return guarded([&] {
        QHash<QByteArray, KnownFile> states;
        for (const QByteArray& path : paths) {
            if (const auto file = filetable::fileByPath(*m_database, rootId, path))
                states.insert(path, file->known);
        }
        return states;
    });
}

LibraryAnswer<QVector<QByteArray>> LibraryReader::pathsBelow(qint64 rootId, const QByteArray& folder,
                                                             const QByteArray& after, int limit)
{
    return guarded([&] { return filequeries::pathsBelow(*m_database, rootId, folder, after, limit); });
}
