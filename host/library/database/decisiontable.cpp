// SPDX-License-Identifier: MIT
#include "host/library/database/decisiontable.h"

#include "host/library/database/librarystatement.h"

namespace {

decisiontable::Sign signFrom(qint64 column)
{
    return column > 0 ? decisiontable::Sign::Plus : decisiontable::Sign::Minus;
}

}  // namespace

bool decisiontable::hasAny(LibraryDatabase& database)
{
    return LibraryStatement(database, "SELECT 1 FROM decisions LIMIT 1").run().next();
}

QVector<decisiontable::Decision> decisiontable::decisionsOf(LibraryDatabase& database, qint64 fileId)
{
    LibraryStatement select(database, "SELECT tag_id, sign FROM decisions WHERE file_id = ?");
    select.run(fileId);
    QVector<Decision> decisions;
    while (select.next())
        decisions.append({select.integer(0), signFrom(select.integer(1))});
    return decisions;
}

std::optional<decisiontable::Sign> decisiontable::find(LibraryDatabase& database, qint64 fileId, qint64 tagId)
{
    LibraryStatement select(database, "SELECT sign FROM decisions WHERE file_id = ? AND tag_id = ?");
    if (!select.run(fileId, tagId).next())
        return std::nullopt;
    return signFrom(select.integer(0));
}

void decisiontable::set(LibraryDatabase& database, qint64 fileId, qint64 tagId, Sign sign)
{
    LibraryStatement(database, "INSERT OR REPLACE INTO decisions (file_id, tag_id, sign) VALUES (?, ?, ?)")
        .run(fileId, tagId, int(sign));
}

void decisiontable::remove(LibraryDatabase& database, qint64 fileId, qint64 tagId)
{
    LibraryStatement(database, "DELETE FROM decisions WHERE file_id = ? AND tag_id = ?").run(fileId, tagId);
}

void decisiontable::merge(LibraryDatabase& database, qint64 from, qint64 into)
{
    LibraryStatement(database, "DELETE FROM decisions WHERE tag_id = ? AND sign < 0 AND file_id IN"
                               " (SELECT file_id FROM file_tags WHERE tag_id = ?)")
        .run(into, into);
    LibraryStatement(database, "INSERT OR IGNORE INTO decisions (file_id, tag_id, sign)"
                               " SELECT file_id, ?, 1 FROM decisions WHERE tag_id = ? AND sign > 0")
        .run(into, from);
    LibraryStatement(database, "INSERT OR IGNORE INTO decisions (file_id, tag_id, sign)"
                               " SELECT file_id, ?, -1 FROM decisions WHERE tag_id = ? AND sign < 0"
                               " AND file_id NOT IN (SELECT file_id FROM file_tags WHERE tag_id = ?)")
        .run(into, from, into);
}
