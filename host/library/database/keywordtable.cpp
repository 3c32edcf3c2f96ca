// SPDX-License-Identifier: MIT
#include "host/library/database/keywordtable.h"

#include "host/library/database/librarystatement.h"
#include "host/library/database/namecolumns.h"

namespace {

QVariant tagColumn(qint64 tagId)
{
    return tagId == 0 ? QVariant(QVariant::LongLong) : QVariant(tagId);
}

}  // namespace

std::optional<keywordtable::Keyword> keywordtable::find(LibraryDatabase& database, const QString& name)
{
    LibraryStatement select(database, "SELECT id, state, tag_id FROM keywords WHERE name = ?");
    if (!select.run(namecolumns::key(name)).next())
        return std::nullopt;
    return Keyword{select.integer(0), static_cast<State>(select.integer(1)), select.integer(2)};
}

qint64 keywordtable::insert(LibraryDatabase& database, const QString& name, State state, qint64 tagId)
{
    LibraryStatement insert(database, "INSERT INTO keywords (name, spelling, state, tag_id) VALUES (?, ?, ?, ?)");
    insert.run(namecolumns::key(name), namecolumns::spelling(name), int(state), tagColumn(tagId));
    return insert.lastInsertId();
}

void keywordtable::update(LibraryDatabase& database, qint64 id, State state, qint64 tagId)
{
    LibraryStatement(database, "UPDATE keywords SET state = ?, tag_id = ? WHERE id = ?")
        .run(int(state), tagColumn(tagId), id);
}

void keywordtable::redirect(LibraryDatabase& database, qint64 from, qint64 into)
{
    LibraryStatement(database, "UPDATE keywords SET tag_id = ? WHERE tag_id = ?").run(into, from);
}

QVector<KeywordRow> keywordtable::ignored(LibraryDatabase& database)
{
    LibraryStatement select(
        database, "SELECT keywords.name, keywords.spelling, state, count(*) FROM file_keywords"
                  " JOIN keywords ON keywords.id = keyword_id LEFT JOIN tags ON tags.id = tag_id"
                  " WHERE state != 0 OR tags.deleted IS NOT NULL GROUP BY keywords.id ORDER BY keywords.name");
    select.run();
    QVector<KeywordRow> rows;
    while (select.next())
        rows.append({select.name(0, 1), static_cast<State>(select.integer(2)) == State::Undecided, select.integer(3)});
    return rows;
}
