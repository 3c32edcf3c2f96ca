// SPDX-License-Identifier: MIT
#include "host/library/libraryreader.h"

#include "host/library/database/filetable.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/libraryfile.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/reservedcategory.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

/// A list of ids as the one value that json_each() takes apart again, so that a list of any length is bound.
QString jsonArray(const QVector<qint64>& ids)
{
    // Ids are below 2^53 (they count up from 1), which is what a number in JSON holds.
    QJsonArray array;
    for (qint64 id : ids)
        array.append(id);
    return QString::fromLatin1(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QVector<qint64> readIds(LibraryStatement& statement)
{
    QVector<qint64> ids;
    while (statement.next())
        ids.append(statement.integer(0));
    return ids;
}

QVector<qint64> readAllFileIds(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT id FROM files ORDER BY path");
    return readIds(select.run());
}

QVector<qint64> readFileIdsOfTags(LibraryDatabase& database, const QVector<qint64>& tagIds)
{
    // A few tags: their files are collected and sorted. Many: each file is asked for its tags, in the order of the
    // paths; the plus sign keeps SQLite from asking each tag for the file. 1,000,000 files with 100,000 tags took 8 s
    // the first way.
    constexpr int ManyTags = 2000;
    LibraryStatement select(database, tagIds.size() < ManyTags
                                          ? "SELECT id FROM files WHERE id IN (SELECT file_id FROM file_tags WHERE"
                                            " tag_id IN (SELECT value FROM json_each(?))) ORDER BY path"
                                          : "SELECT id FROM files WHERE EXISTS (SELECT 1 FROM file_tags WHERE"
                                            " file_id = files.id AND +tag_id IN (SELECT value FROM json_each(?)))"
                                            " ORDER BY path");
    return readIds(select.run(jsonArray(tagIds)));
}

QVector<qint64> readTagIdsOfCategories(LibraryDatabase& database, const QVector<qint64>& categoryIds)
{
    if (categoryIds.contains(reservedcategory::AllTags)) {
        LibraryStatement select(database, "SELECT id FROM tags");
        return readIds(select.run());
    }
    LibraryStatement select(database,
                            "SELECT tag_id FROM tag_categories WHERE category_id IN (SELECT value FROM json_each(?))");
    QVector<qint64> tagIds = readIds(select.run(jsonArray(categoryIds)));
    if (categoryIds.contains(reservedcategory::Uncategorized)) {
        LibraryStatement rest(database, "SELECT id FROM tags WHERE id NOT IN"
                                        " (SELECT tag_id FROM tag_categories WHERE category_id >= ?)");
        tagIds += readIds(rest.run(reservedcategory::FirstUserId));
    }
    return tagIds;
}

qint64 readNumber(LibraryDatabase& database, const char* sql)
{
    LibraryStatement select(database, sql);
    return select.run().next() ? select.integer(0) : 0;
}

}  // namespace

LibraryReader::LibraryReader(std::unique_ptr<LibraryDatabase> database)
    : m_database(std::move(database))
{
}

LibraryReader::~LibraryReader() = default;

std::unique_ptr<LibraryReader> LibraryReader::open(const QString& path, QString* error)
{
    try {
        const QString file = QFileInfo(path).absoluteFilePath();
        libraryfile::requireReadable(file);
        return std::unique_ptr<LibraryReader>(
            new LibraryReader(libraryfile::connectTo(file, LibraryDatabase::Access::ReadOnly)));
    } catch (const LibraryError& failure) {
        if (error)
            *error = failure.message();
        return nullptr;
    }
}

template <typename Read>
auto LibraryReader::guarded(Read read) -> decltype(read())
{
    m_lastError.clear();
    try {
        return read();
    } catch (const LibraryError& error) {
        m_lastError = error.message();
        return decltype(read())();
    }
}

QVector<TagRow> LibraryReader::tags()
{
    return guarded([this] { return tagtable::tags(*m_database); });
}

QVector<CategoryRow> LibraryReader::categories()
{
    return guarded([this] { return tagtable::categories(*m_database); });
}

QVector<TagLink> LibraryReader::tagLinks()
{
    return guarded([this] { return tagtable::tagLinks(*m_database); });
}

LibraryTotals LibraryReader::totals()
{
    return guarded([this]() -> LibraryTotals {
        return {readNumber(*m_database, "SELECT count(*) FROM files"),
                readNumber(*m_database, "SELECT count(*) FROM tags"),
                readNumber(*m_database, "SELECT count(*) FROM file_tags")};
    });
}

void LibraryReader::forEachFile(const FileVisitor& visitor)
{
    guarded([&] {
        LibraryTransaction transaction(*m_database, LibraryTransaction::Kind::Reading);
        LibraryStatement select(*m_database,
                                "SELECT id, path, size, modified, sidecars, content FROM files ORDER BY path");
        select.run();
        bool wanted = true;
        while (wanted && select.next()) {
            const qint64 id = select.integer(0);
            wanted = visitor({id,
                              select.bytes(1),
                              {select.integer(2), select.integer(3), select.bytes(4), select.bytes(5)},
                              filetable::tagsOfFile(*m_database, id)});
        }
    });
}

QVector<qint64> LibraryReader::fileIds(const FileQuery& query)
{
    return guarded([&] {
        if (query.scope == FileQuery::Scope::AllFiles)
            return readAllFileIds(*m_database);
        LibraryTransaction transaction(*m_database, LibraryTransaction::Kind::Reading);
        if (query.scope == FileQuery::Scope::Tags)
            return readFileIdsOfTags(*m_database, query.ids);
        return readFileIdsOfTags(*m_database, readTagIdsOfCategories(*m_database, query.ids));
    });
}

QVector<FileRow> LibraryReader::files(const QVector<qint64>& ids)
{
    return guarded([&] {
        QVector<FileRow> rows;
        for (qint64 id : ids) {
            if (const std::optional<FileRow> row = filetable::fileById(*m_database, id))
                rows.append(*row);
        }
        return rows;
    });
}

QHash<QByteArray, FileState> LibraryReader::fileStates(const QVector<QByteArray>& paths)
{
    return guarded([&] {
        QHash<QByteArray, FileState> states;
        for (const QByteArray& path : paths) {
            if (const std::optional<FileRow> row = filetable::fileByPath(*m_database, path))
                states.insert(path, row->state);
        }
        return states;
    });
}

QVector<QByteArray> LibraryReader::pathsBelow(const QByteArray& folder, const QByteArray& after, int limit)
{
    return guarded([&] {
        QByteArray first = folder;
        while (first.endsWith('/'))
            first.chop(1);
        const QByteArray end = first + char('/' + 1);
        first += '/';
        LibraryStatement select(*m_database,
                                "SELECT path FROM files WHERE path > ? AND path < ? ORDER BY path LIMIT ?");
        select.run(qMax(first, after), end, limit);
        QVector<QByteArray> paths;
        while (select.next())
            paths.append(select.bytes(0));
        return paths;
    });
}

QString LibraryReader::lastError() const
{
    return m_lastError;
}
