// SPDX-License-Identifier: MIT
#include "host/library/database/version1queries.h"

#include "host/library/database/keywordtable.h"
#include "host/library/database/librarystatement.h"

namespace {

constexpr int Mapped = int(keywordtable::State::Mapped);
constexpr int Unsettled = int(keywordtable::State::Unsettled);

}  // namespace

QVector<version1queries::Unsettled> version1queries::unsettledKeywords(LibraryDatabase& database)
{
    LibraryStatement select(
        database, "SELECT keywords.id, keywords.name, keywords.spelling, ifnull(n, 0) FROM keywords LEFT JOIN"
                  " (SELECT keyword_id, count(*) AS n FROM files CROSS JOIN file_keywords ON file_id = files.id"
                  " WHERE v1_content IS NOT NULL AND reader > 0 GROUP BY keyword_id) ON keyword_id = keywords.id"
                  " WHERE state = ? ORDER BY keywords.id");
    select.run(::Unsettled);
    QVector<version1queries::Unsettled> keywords;
    while (select.next())
        keywords.append({select.integer(0), select.name(1, 2), select.integer(3)});
    return keywords;
}

QVector<version1queries::Pair> version1queries::pairs(LibraryDatabase& database)
{
    LibraryStatement select(
        database,
        "WITH these AS MATERIALIZED (SELECT id FROM files WHERE v1_content IS NOT NULL AND reader > 0),"
        " of_keyword AS MATERIALIZED (SELECT keyword_id, count(*) AS n FROM these JOIN file_keywords ON file_id ="
        " these.id GROUP BY keyword_id),"
        " of_tag AS MATERIALIZED (SELECT tag_id, count(*) AS n FROM these JOIN file_tags ON file_id = these.id"
        " GROUP BY tag_id)"
        " SELECT of_keyword.keyword_id, of_tag.tag_id, both.n = of_tag.n FROM"
        " (SELECT keyword_id, file_tags.tag_id AS tag_id, count(*) AS n FROM these JOIN file_keywords ON "
        "file_keywords.file_id = these.id"
        " JOIN file_tags ON file_tags.file_id = these.id JOIN keywords ON keywords.id = keyword_id"
        " WHERE keywords.state = ? GROUP BY keyword_id, file_tags.tag_id) AS both"
        " JOIN of_keyword ON of_keyword.keyword_id = both.keyword_id AND of_keyword.n = both.n"
        " JOIN of_tag ON of_tag.tag_id = both.tag_id JOIN tags ON tags.id = both.tag_id AND tags.deleted IS NULL"
        " ORDER BY 1, 2");
    select.run(::Unsettled);
    QVector<Pair> pairs;
    while (select.next())
        pairs.append({select.integer(0), select.integer(1), select.integer(2) != 0});
    return pairs;
}

QVector<qint64> version1queries::explainedTags(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT DISTINCT tag_id FROM keywords WHERE state = ? AND tag_id IS NOT NULL");
    return select.run(::Mapped).integers();
}

bool version1queries::hasFilesReadAgain(LibraryDatabase& database)
{
    return LibraryStatement(database, "SELECT 1 FROM files WHERE v1_content IS NOT NULL AND reader > 0 LIMIT 1")
        .run()
        .next();
}

QVector<version1queries::Guess> version1queries::contradictedGuesses(LibraryDatabase& database)
{
    LibraryStatement select(
        database,
        "SELECT keywords.id, keywords.tag_id FROM files CROSS JOIN file_keywords ON file_keywords.file_id = files.id"
        " JOIN keywords ON keywords.id = keyword_id JOIN tags ON tags.id = keywords.tag_id"
        " LEFT JOIN file_tags ON file_tags.tag_id = keywords.tag_id AND file_tags.file_id = files.id"
        " WHERE v1_content IS NOT NULL AND reader > 0 AND state = ? AND tags.deleted IS NULL"
        " AND tags.name = keywords.name GROUP BY keywords.id HAVING count(file_tags.tag_id) = 0 ORDER BY keywords.id");
    select.run(::Mapped);
    QVector<Guess> guesses;
    while (select.next())
        guesses.append({select.integer(0), select.integer(1)});
    return guesses;
}

QHash<qint64, int> version1queries::followSettledKeywords(LibraryDatabase& database)
{
    LibraryStatement insert(
        database,
        "WITH wanted AS (SELECT keywords.tag_id AS tag_id, file_id FROM file_keywords"
        " JOIN keywords ON keywords.id = keyword_id WHERE state = ? AND tag_id IS NOT NULL"
        " UNION SELECT keywords.tag_id, files.id FROM files CROSS JOIN file_keywords ON file_id = files.id"
        " JOIN keywords ON keywords.id = keyword_id WHERE v1_content IS NOT NULL AND reader > 0 AND state = ?"
        " AND tag_id IS NOT NULL)"
        " INSERT INTO file_tags (tag_id, file_id) SELECT tag_id, file_id FROM wanted WHERE NOT EXISTS"
        " (SELECT 1 FROM decisions WHERE decisions.file_id = wanted.file_id AND decisions.tag_id = wanted.tag_id"
        " AND sign < 0) ON CONFLICT DO NOTHING RETURNING tag_id");
    QHash<qint64, int> counts;
    for (qint64 tagId : insert.run(::Unsettled, ::Mapped).integers())
        ++counts[tagId];
    LibraryStatement(database, "UPDATE keywords SET state = ? WHERE state = ? AND tag_id IS NOT NULL")
        .run(::Mapped, ::Unsettled);
    return counts;
}

void version1queries::keepUnexplainedTags(LibraryDatabase& database)
{
    LibraryStatement(database,
                     "INSERT INTO decisions (file_id, tag_id, sign) SELECT files.id, file_tags.tag_id, 1 FROM files"
                     " CROSS JOIN file_tags ON file_tags.file_id = files.id WHERE v1_content IS NOT NULL AND reader > 0"
                     " AND NOT EXISTS (SELECT 1 FROM file_keywords JOIN keywords ON keywords.id = keyword_id WHERE"
                     " file_keywords.file_id = files.id AND keywords.tag_id = file_tags.tag_id) ON CONFLICT DO NOTHING")
        .run();
}

void version1queries::forgetVersion1(LibraryDatabase& database)
{
    LibraryStatement(database, "UPDATE files SET v1_content = NULL WHERE v1_content IS NOT NULL AND reader > 0").run();
}
