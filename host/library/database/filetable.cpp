// SPDX-License-Identifier: MIT
#include "host/library/database/filetable.h"

#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/pairstatement.h"
#include "host/library/records/librarytext.h"

namespace {

/// The one list of a file's columns, in the order that readFile() reads.
QByteArray selectFiles(const char* which)
{
    return QByteArray("SELECT id, root_id, path, size, modified, sidecars, reader, identity, v1_content FROM files ") +
           which;
}

filetable::StoredFile readFile(const LibraryStatement& statement)
{
    filetable::StoredFile file;
    file.row.id = statement.integer(0);
    file.row.rootId = statement.integer(1);
    file.row.relativePath = statement.bytes(2);
    file.row.known = {{statement.integer(3), statement.integer(4), statement.bytes(5)}, int(statement.integer(6))};
    file.identity = statement.bytes(7);
    if (!statement.isNull(8))
        file.version1Hash = statement.bytes(8);
    return file;
}

QVariant timeColumn(const std::optional<qint64>& time)
{
    return time ? QVariant(*time) : QVariant(QVariant::LongLong);
}

}  // namespace

qint64 filetable::idByPath(LibraryDatabase& database, qint64 rootId, const QByteArray& path)
{
    // One column: what Qt does for each column of a row costs more than finding the row.
    LibraryStatement select(database, "SELECT id FROM files WHERE root_id = ? AND path = ?");
    return select.run(rootId, path).next() ? select.integer(0) : 0;
}

std::optional<filetable::StoredFile> filetable::fileById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database, selectFiles("WHERE id = ?"));
    if (!select.run(id).next())
        return std::nullopt;
    return readFile(select);
}

void filetable::forEach(LibraryDatabase& database, const FileVisitor& visitor)
{
    LibraryStatement select(database, selectFiles("ORDER BY root_id, path"));
    select.run();
    while (select.next()) {
        FileRow row = readFile(select).row;
        if (!visitor(row))
            return;
    }
}

void filetable::forEachBelow(LibraryDatabase& database, qint64 rootId, const QByteArray& folder,
                             const FileVisitor& visitor)
{
    const QByteArray first = folder.isEmpty() ? QByteArray("") : folder + '/';
    // Above every path: no name in one is so long.
    const QByteArray end = folder.isEmpty() ? QByteArray(256, '\xff') : folder + char('/' + 1);
    LibraryStatement select(database, selectFiles("WHERE root_id = ? AND path > ? AND path < ? ORDER BY path"));
    select.run(rootId, first, end);
    QByteArray last;
    while (select.next()) {
        FileRow row = readFile(select).row;
        if (row.relativePath <= last)
            throw LibraryError(LibraryStatus::Damaged,
                               LibraryText::tr("The library is damaged: its list of files is out of order."));
        last = row.relativePath;
        if (!visitor(row))
            return;
    }
}

qint64 filetable::insert(LibraryDatabase& database, qint64 rootId, const ImportedFile& file)
{
    LibraryStatement insert(database, "INSERT INTO files (root_id, path, size, modified, sidecars, reader, identity,"
                                      " taken) VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    insert.run(rootId, file.path, file.state.size, file.state.modified, file.state.sidecars, file.readerVersion,
               file.identity, timeColumn(file.taken));
    return insert.lastInsertId();
}

void filetable::update(LibraryDatabase& database, qint64 id, const ImportedFile& file, bool keepsVersion1)
{
    LibraryStatement(database, "UPDATE files SET size = ?, modified = ?, sidecars = ?, reader = ?, identity = ?,"
                               " taken = ?, v1_content = iif(?, v1_content, NULL) WHERE id = ?")
        .run(file.state.size, file.state.modified, file.state.sidecars, file.readerVersion, file.identity,
             timeColumn(file.taken), keepsVersion1, id);
}

/// Keywords and decisions go with the file's row; so would its tags, which the caller has counted.
void filetable::remove(LibraryDatabase& database, qint64 id)
{
    LibraryStatement(database, "DELETE FROM files WHERE id = ?").run(id);
}

QVector<qint64> filetable::tagsOf(LibraryDatabase& database, qint64 id)
{
    return LibraryStatement(database, "SELECT tag_id FROM file_tags WHERE file_id = ? ORDER BY tag_id")
        .run(id)
        .integers();
}

void filetable::addTag(LibraryDatabase& database, qint64 id, qint64 tagId)
{
    LibraryStatement(database, "INSERT INTO file_tags (tag_id, file_id) VALUES (?, ?)").run(tagId, id);
}

void filetable::addTagsOfKeywords(LibraryDatabase& database, qint64 firstId)
{
    // In the order of the table, which is how it is filled fastest.
    LibraryStatement(database, "INSERT INTO file_tags (tag_id, file_id) SELECT tag_id, file_id FROM"
                               " file_keywords CROSS JOIN keywords ON keywords.id = keyword_id WHERE file_id >= ?"
                               " AND tag_id IS NOT NULL ORDER BY tag_id, file_id ON CONFLICT DO NOTHING")
        .run(firstId);
}

void filetable::removeTag(LibraryDatabase& database, qint64 id, qint64 tagId)
{
    LibraryStatement(database, "DELETE FROM file_tags WHERE tag_id = ? AND file_id = ?").run(tagId, id);
}

QVector<qint64> filetable::keywordsOf(LibraryDatabase& database, qint64 id)
{
    return LibraryStatement(database, "SELECT keyword_id FROM file_keywords WHERE file_id = ? ORDER BY keyword_id")
        .run(id)
        .integers();
}

void filetable::addKeyword(LibraryDatabase& database, qint64 id, qint64 keywordId)
{
    LibraryStatement(database, "INSERT INTO file_keywords (file_id, keyword_id) VALUES (?, ?)").run(id, keywordId);
}

void filetable::addKeywords(LibraryDatabase& database, const QVector<KeywordOfFile>& keywords)
{
    PairStatement(database, "INSERT INTO file_keywords (file_id, keyword_id) VALUES ").run(keywords);
}

void filetable::removeKeyword(LibraryDatabase& database, qint64 id, qint64 keywordId)
{
    LibraryStatement(database, "DELETE FROM file_keywords WHERE file_id = ? AND keyword_id = ?").run(id, keywordId);
}

bool filetable::hasFilesOfVersion1(LibraryDatabase& database)
{
    return LibraryStatement(database, "SELECT 1 FROM files WHERE v1_content IS NOT NULL LIMIT 1").run().next();
}

bool filetable::exists(LibraryDatabase& database, qint64 id)
{
    return LibraryStatement(database, "SELECT 1 FROM files WHERE id = ?").run(id).next();
}

bool filetable::hasKeywordFor(LibraryDatabase& database, qint64 id, qint64 tagId)
{
    LibraryStatement select(database, "SELECT 1 FROM file_keywords JOIN keywords ON keywords.id = keyword_id"
                                      " WHERE file_id = ? AND tag_id = ?");
    return select.run(id, tagId).next();
}

int filetable::copyTag(LibraryDatabase& database, qint64 from, qint64 into)
{
    LibraryStatement insert(database, "INSERT OR IGNORE INTO file_tags (tag_id, file_id)"
                                      " SELECT ?, file_id FROM file_tags WHERE tag_id = ?");
    return insert.run(into, from).rowsChanged();
}

int filetable::followKeyword(LibraryDatabase& database, qint64 keywordId, qint64 tagId)
{
    LibraryStatement insert(database,
                            "INSERT INTO file_tags (tag_id, file_id) SELECT ?, file_id FROM file_keywords AS own"
                            " WHERE keyword_id = ? AND NOT EXISTS (SELECT 1 FROM decisions WHERE file_id = own.file_id"
                            " AND tag_id = ? AND sign < 0) ON CONFLICT DO NOTHING");
    return insert.run(tagId, keywordId, tagId).rowsChanged();
}

int filetable::leaveKeyword(LibraryDatabase& database, qint64 keywordId, qint64 tagId)
{
    LibraryStatement remove(
        database, "DELETE FROM file_tags WHERE tag_id = ? AND file_id IN"
                  " (SELECT file_id FROM file_keywords WHERE keyword_id = ?)"
                  " AND NOT EXISTS (SELECT 1 FROM file_keywords AS other JOIN keywords ON keywords.id ="
                  " other.keyword_id WHERE other.file_id = file_tags.file_id AND keywords.tag_id = file_tags.tag_id)"
                  " AND NOT EXISTS (SELECT 1 FROM decisions WHERE decisions.file_id = file_tags.file_id"
                  " AND decisions.tag_id = file_tags.tag_id AND sign > 0)");
    return remove.run(tagId, keywordId).rowsChanged();
}
