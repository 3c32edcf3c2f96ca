// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/version1.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytable.h"
#include "host/library/database/sqlite/sqliteschema.h"
#include "host/library/records/tagname.h"

#include <algorithm>

namespace {

/// These are in version 2 as they were, with their indexes.
bool isKept(const char* sql)
{
    return QByteArray(sql).contains(" tag_categories ") || QByteArray(sql).contains(" file_tags ");
}

/// The tables of version 2 beside those of version 1, which get other names.
void makeTables(LibraryDatabase& database)
{
    for (const char* table : {"tags", "categories", "files"})
        database.execute(QStringLiteral("ALTER TABLE %1 RENAME TO v1_%1").arg(QLatin1String(table)));
    for (const char* sql : sqliteschema::tables()) {
        if (!isKept(sql))
            database.execute(QString::fromLatin1(sql));
    }
}

/// The longest folder that holds every path: what the first and the last one have in common.
QByteArray commonFolder(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT min(path), max(path) FROM v1_files");
    if (!select.run().next() || select.isNull(0))
        return {};
    const QByteArray first = select.bytes(0);
    const QByteArray last = select.bytes(1);
    const auto length = std::mismatch(first.cbegin(), first.cend(), last.cbegin(), last.cend()).first - first.cbegin();
    const int slash = first.lastIndexOf('/', std::max(int(length) - 1, 0));
    return slash > 0 ? first.left(slash) : QByteArray("/");
}

void copyRows(LibraryDatabase& database)
{
    database.execute(QStringLiteral(
        "INSERT INTO tags (id, name, spelling, color, file_count) SELECT id, name, spelling, color, ifnull(n, 0)"
        " FROM v1_tags LEFT JOIN (SELECT tag_id, count(*) AS n FROM file_tags GROUP BY tag_id) ON tag_id = id"));
    database.execute(QStringLiteral(
        "INSERT INTO categories (id, name, spelling, tag_count) SELECT id, name, spelling, ifnull(n, 0) FROM"
        " v1_categories LEFT JOIN (SELECT category_id, count(*) AS n FROM tag_categories GROUP BY category_id)"
        " ON category_id = id"));
}

void copyFiles(LibraryDatabase& database, version1::Migrated& migrated)
{
    migrated.folder = commonFolder(database);
    if (migrated.folder.isEmpty())
        return;
    const bool isTop = migrated.folder == "/";
    const QByteArray name = isTop ? migrated.folder : migrated.folder.mid(migrated.folder.lastIndexOf('/') + 1);
    LibraryStatement root(database, "INSERT INTO roots (name, file_count) SELECT ?, count(*) FROM v1_files");
    migrated.rootId = root.run(tagname::repaired(QString::fromUtf8(name))).lastInsertId();
    // The part of a path after the folder and its slash, counted in bytes from 1.
    const int start = isTop ? 2 : migrated.folder.size() + 2;
    LibraryStatement(database, "INSERT INTO files (id, root_id, path, size, modified, sidecars, reader, v1_content)"
                               " SELECT id, ?, substr(path, ?), size, modified, sidecars, 0, ifnull(content, x'')"
                               " FROM v1_files ORDER BY id")
        .run(migrated.rootId, start);
}

/// Ids are never used twice, also not those of rows that were deleted before.
void dropOldTables(LibraryDatabase& database)
{
    for (const char* table : {"tags", "categories", "files"}) {
        const QString name = QLatin1String(table);
        database.execute(QStringLiteral("DELETE FROM sqlite_sequence WHERE name = '%1'").arg(name));
        database.execute(QStringLiteral("INSERT INTO sqlite_sequence SELECT '%1', seq FROM sqlite_sequence"
                                        " WHERE name = 'v1_%1'")
                             .arg(name));
        database.execute(QStringLiteral("DROP TABLE v1_%1").arg(name));
    }
}

struct Named
{
    qint64 id;
    QString name;
};

/// Of those with a name that is stored as bytes: only such a one may be invalid.
QVector<Named> invalidNames(LibraryDatabase& database, const char* sql)
{
    LibraryStatement select(database, sql);
    select.run();
    QVector<Named> found;
    while (select.next()) {
        const QString name = select.name(1, 2);
        if (!tagname::isValid(name))
            found.append({select.integer(0), name});
    }
    return found;
}

QStringList replaceNames(LibraryDatabase& database, const char* select, const char* isTaken, const char* update)
{
    QStringList replaced;
    for (const Named& row : invalidNames(database, select)) {
        QString name = tagname::kept(tagname::repaired(row.name));
        const auto taken = [&](const QString& wanted) {
            return LibraryStatement(database, isTaken).run(tagname::toColumn(tagname::key(wanted))).next();
        };
        for (int number = 2; taken(name); ++number)
            name = tagname::repaired(row.name) + QLatin1Char(' ') + QString::number(number);
        const QString key = tagname::key(name);
        LibraryStatement(database, update)
            .run(tagname::toColumn(key), name == key ? QVariant() : tagname::toColumn(name), row.id);
        replaced.append(name);
    }
    return replaced;
}

}  // namespace

version1::Migrated version1::migrate(LibraryDatabase& database)
{
    Migrated migrated;
    makeTables(database);
    copyRows(database);
    copyFiles(database, migrated);
    dropOldTables(database);
    QStringList namesReplaced = replaceNames(
        database, "SELECT id, name, spelling FROM tags WHERE typeof(name) = 'blob' OR typeof(spelling) = 'blob'",
        "SELECT 1 FROM tags WHERE name = ?", "UPDATE tags SET name = ?, spelling = ? WHERE id = ?");
    namesReplaced += replaceNames(
        database, "SELECT id, name, spelling FROM categories WHERE typeof(name) = 'blob' OR typeof(spelling) = 'blob'",
        "SELECT 1 FROM categories WHERE name = ?", "UPDATE categories SET name = ?, spelling = ? WHERE id = ?");
    librarytable::setNewId(database);
    librarytable::setNamesReplaced(database, namesReplaced);
    return migrated;
}
