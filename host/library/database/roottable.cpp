// SPDX-License-Identifier: MIT
#include "host/library/database/roottable.h"

#include "host/library/database/librarystatement.h"

QVector<RootRow> roottable::roots(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT id, name, file_count FROM roots ORDER BY id");
    select.run();
    QVector<RootRow> rows;
    while (select.next())
        rows.append({select.integer(0), QString::fromUtf8(select.bytes(1)), select.integer(2)});
    return rows;
}

bool roottable::exists(LibraryDatabase& database, qint64 id)
{
    return LibraryStatement(database, "SELECT 1 FROM roots WHERE id = ?").run(id).next();
}

qint64 roottable::insert(LibraryDatabase& database, const QString& name)
{
    return LibraryStatement(database, "INSERT INTO roots (name) VALUES (?)").run(name).lastInsertId();
}

void roottable::addToFileCount(LibraryDatabase& database, qint64 id, int more)
{
    LibraryStatement(database, "UPDATE roots SET file_count = file_count + ? WHERE id = ?").run(more, id);
}

void roottable::adopt(LibraryDatabase& database, qint64 id, qint64 into, const QByteArray& folder)
{
    LibraryStatement(database, "UPDATE files SET root_id = ?, path = CAST(? || '/' || path AS BLOB) WHERE root_id = ?")
        .run(into, folder, id);
    LibraryStatement(database, "UPDATE roots SET file_count = file_count + (SELECT file_count FROM roots WHERE id = ?)"
                               " WHERE id = ?")
        .run(id, into);
    LibraryStatement(database, "DELETE FROM roots WHERE id = ?").run(id);
}

void roottable::split(LibraryDatabase& database, qint64 id, const QByteArray& folder, qint64 into)
{
    LibraryStatement count(database, "SELECT count(*) FROM files WHERE root_id = ? AND path > ? AND path < ?");
    const QByteArray first = folder + '/';
    const QByteArray last = folder + char('/' + 1);
    const int files = count.run(id, first, last).next() ? int(count.integer(0)) : 0;
    LibraryStatement(database, "UPDATE files SET root_id = ?, path = substr(path, ?) WHERE root_id = ? AND path > ?"
                               " AND path < ?")
        .run(into, first.size() + 1, id, first, last);
    addToFileCount(database, id, -files);
    addToFileCount(database, into, files);
}

qint64 roottable::fileCount(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT ifnull(sum(file_count), 0) FROM roots");
    return select.run().next() ? select.integer(0) : 0;
}
