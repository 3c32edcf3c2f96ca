// SPDX-License-Identifier: MIT
#include "host/library/database/filetable.h"

#include "host/library/database/librarystatement.h"

namespace {

std::optional<FileRow> readFile(LibraryStatement& statement)
{
    if (!statement.next())
        return std::nullopt;
    const FileState state{statement.integer(2), statement.integer(3), statement.bytes(4), statement.bytes(5)};
    return FileRow{statement.integer(0), statement.bytes(1), state, {}};
}

}  // namespace

std::optional<FileRow> filetable::fileByPath(LibraryDatabase& database, const QByteArray& path)
{
    LibraryStatement select(database, "SELECT id, path, size, modified, sidecars, content FROM files WHERE path = ?");
    return readFile(select.run(path));
}

std::optional<FileRow> filetable::fileById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database, "SELECT id, path, size, modified, sidecars, content FROM files WHERE id = ?");
    return readFile(select.run(id));
}

QVector<qint64> filetable::tagsOfFile(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database, "SELECT tag_id FROM file_tags WHERE file_id = ? ORDER BY tag_id");
    select.run(id);
    QVector<qint64> tags;
    while (select.next())
        tags.append(select.integer(0));
    return tags;
}
