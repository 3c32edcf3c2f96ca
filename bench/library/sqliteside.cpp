// SPDX-License-Identifier: MIT
#include "bench/library/sqliteside.h"

#include "bench/library/librarycommands.h"
#include "bench/library/librarycontent.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"

#include <algorithm>

namespace {

QByteArray blob(const QByteArray& bytes)
{
    return "x'" + bytes.toHex() + '\'';
}

/// One transaction: whole lists of rows in a few statements, which is how SQLite takes them fastest.
QByteArray importSql(const bench::LibraryContent& content, int from, int to)
{
    QByteArrayList files;
    QByteArrayList tags;
    QByteArrayList links;
    for (int file = from; file < to; ++file) {
        const QByteArray path = blob(bench::importedPath(file));
        files.append("(2, " + path + ", 1000, 1600000000000000000, 1)");
        const QVector<QString> keywords = content.keywords(file);
        for (const QString& keyword : keywords) {
            const QByteArray name = bench::SqliteProgram::quoted(tagname::key(keyword));
            tags.append('(' + name + ", " + QByteArray::number(TagPalette::indexForName(keyword)) + ')');
            links.append('(' + path + ", " + name + ')');
        }
    }
    return "BEGIN IMMEDIATE;\nINSERT INTO files (root_id, path, size, modified, reader) VALUES " + files.join(", ") +
           ";\nINSERT INTO tags (name, color) SELECT DISTINCT column1, column2 FROM (VALUES " + tags.join(", ") +
           ") WHERE column1 NOT IN (SELECT name FROM keywords WHERE name = column1);\n"
           "INSERT INTO keywords (name, tag_id, state) SELECT name, id, 0 FROM tags WHERE id > (SELECT max(tag_id)"
           " FROM keywords);\n"
           "CREATE TEMP TABLE links AS SELECT tag_id, keywords.id AS keyword_id, files.id AS file_id FROM (VALUES " +
           links.join(", ") +
           ") JOIN files ON root_id = 2 AND path = column1 JOIN keywords ON name = column2;\n"
           "INSERT INTO file_keywords (file_id, keyword_id) SELECT file_id, keyword_id FROM links;\n"
           "INSERT INTO file_tags (tag_id, file_id) SELECT tag_id, file_id FROM links;\n"
           "UPDATE tags SET file_count = file_count + n FROM (SELECT tag_id, count(*) AS n FROM links GROUP BY tag_id)"
           " WHERE id = tag_id;\nDROP TABLE links;\nCOMMIT;";
}

}  // namespace

bench::SqliteSide::SqliteSide(const QString& file, Clock clock)
    : m_program(file)
    , m_clock(clock)
{
}

double bench::SqliteSide::open()
{
    return timeOf("SELECT id, name, spelling, color, file_count FROM tags WHERE deleted IS NULL;\n"
                  "SELECT id, name, spelling FROM categories WHERE deleted IS NULL;\n"
                  "SELECT category_id, tag_id FROM tag_categories;");
}

double bench::SqliteSide::carryOut(const MeasuredCommand& command)
{
    return timeOf(command.sql);
}

double bench::SqliteSide::import(const LibraryContent& content)
{
    double total = 0;
    for (int from = 0; from < content.importedFiles(); from += filesOfBatch)
        total += timeOf(importSql(content, from, std::min(from + filesOfBatch, content.importedFiles())));
    return total;
}

double bench::SqliteSide::timeOf(const QByteArray& sql)
{
    const double start = m_program.now(m_clock);
    m_program.run(sql);
    return m_program.now(m_clock) - start;
}
