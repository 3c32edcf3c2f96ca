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

/// One transaction: whole lists of rows in three statements, which is how SQLite takes them fastest.
QByteArray importSql(const bench::LibraryContent& content, int from, int to)
{
    QByteArrayList files;
    QByteArrayList tags;
    QByteArrayList links;
    for (int file = from; file < to; ++file) {
        const QByteArray path = blob(bench::importedPath(file));
        files.append('(' + path + ", 1000, 1600000000000000000, " + blob(QByteArray(32, '0')) + ')');
        const QVector<QString> keywords = content.keywords(file);
        for (const QString& keyword : keywords) {
            const QByteArray name = bench::SqliteProgram::quoted(tagname::key(keyword));
            tags.append('(' + name + ", " + QByteArray::number(TagPalette::indexForName(keyword)) + ')');
            links.append('(' + path + ", " + name + ')');
        }
    }
    return "BEGIN IMMEDIATE;\nINSERT INTO files (path, size, modified, content) VALUES " + files.join(", ") +
           ";\nINSERT INTO tags (name, color) SELECT DISTINCT column1, column2 FROM (VALUES " + tags.join(", ") +
           ") WHERE column1 NOT IN (SELECT name FROM tags WHERE name = column1);\n"
           "INSERT INTO file_tags (tag_id, file_id) SELECT tags.id, files.id FROM (VALUES " +
           links.join(", ") + ") JOIN files ON path = column1 JOIN tags ON name = column2;\nCOMMIT;";
}

}  // namespace

bench::SqliteSide::SqliteSide(const QString& file, Clock clock)
    : m_program(file)
    , m_clock(clock)
{
}

double bench::SqliteSide::open()
{
    return timeOf("SELECT id, name, spelling, color, ifnull(file_count, 0) FROM tags LEFT JOIN"
                  " (SELECT tag_id, count(*) AS file_count FROM file_tags GROUP BY tag_id) ON tag_id = id;\n"
                  "SELECT id, name, spelling FROM categories;\n"
                  "SELECT category_id, tag_id FROM tag_categories;");
}

double bench::SqliteSide::carryOut(const LibraryCommand& command)
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
