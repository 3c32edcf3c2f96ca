// SPDX-License-Identifier: MIT
#include "host/library/database/tagtable.h"

#include "host/library/database/librarystatement.h"
#include "host/library/records/tagname.h"

namespace {

QVariant keyColumn(const QString& name)
{
    return tagname::toColumn(tagname::key(name));
}

/// Null where the name is its own key, as nearly every name is.
QVariant spellingColumn(const QString& name)
{
    const QString kept = tagname::kept(name);
    return kept == tagname::key(name) ? QVariant() : tagname::toColumn(kept);
}

std::optional<TagRow> readTag(LibraryStatement& statement)
{
    if (!statement.next())
        return std::nullopt;
    return TagRow{statement.integer(0), statement.name(1, 2), static_cast<int>(statement.integer(3)), 0};
}

std::optional<CategoryRow> readCategory(LibraryStatement& statement)
{
    if (!statement.next())
        return std::nullopt;
    return CategoryRow{statement.integer(0), statement.name(1, 2), 0};
}

}  // namespace

QVector<TagRow> tagtable::tags(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT id, name, spelling, color, ifnull(file_count, 0) FROM tags LEFT JOIN"
                                      " (SELECT tag_id, count(*) AS file_count FROM file_tags GROUP BY tag_id)"
                                      " ON tag_id = id ORDER BY id");
    select.run();
    QVector<TagRow> rows;
    while (select.next())
        rows.append({select.integer(0), select.name(1, 2), int(select.integer(3)), int(select.integer(4))});
    return rows;
}

QVector<CategoryRow> tagtable::categories(LibraryDatabase& database)
{
    LibraryStatement select(database,
                            "SELECT id, name, spelling, ifnull(tag_count, 0) FROM categories LEFT JOIN"
                            " (SELECT category_id, count(*) AS tag_count FROM tag_categories GROUP BY category_id)"
                            " ON category_id = id ORDER BY id");
    select.run();
    QVector<CategoryRow> rows;
    while (select.next())
        rows.append({select.integer(0), select.name(1, 2), int(select.integer(3))});
    return rows;
}

QVector<TagLink> tagtable::tagLinks(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT category_id, tag_id FROM tag_categories");
    select.run();
    QVector<TagLink> links;
    while (select.next())
        links.append({select.integer(0), select.integer(1)});
    return links;
}

std::optional<TagRow> tagtable::tagByName(LibraryDatabase& database, const QString& name)
{
    LibraryStatement select(database, "SELECT id, name, spelling, color FROM tags WHERE name = ?");
    return readTag(select.run(keyColumn(name)));
}

std::optional<TagRow> tagtable::tagById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database, "SELECT id, name, spelling, color FROM tags WHERE id = ?");
    return readTag(select.run(id));
}

TagRow tagtable::insertTag(LibraryDatabase& database, const QString& name, int colorIndex)
{
    LibraryStatement insert(database, "INSERT INTO tags (name, spelling, color) VALUES (?, ?, ?)");
    insert.run(keyColumn(name), spellingColumn(name), colorIndex);
    return {insert.lastInsertId(), tagname::kept(name), colorIndex, 0};
}

void tagtable::updateTagName(LibraryDatabase& database, qint64 id, const QString& name)
{
    LibraryStatement update(database, "UPDATE tags SET name = ?, spelling = ? WHERE id = ?");
    update.run(keyColumn(name), spellingColumn(name), id);
}

std::optional<CategoryRow> tagtable::categoryByName(LibraryDatabase& database, const QString& name)
{
    LibraryStatement select(database, "SELECT id, name, spelling FROM categories WHERE name = ?");
    return readCategory(select.run(keyColumn(name)));
}

std::optional<CategoryRow> tagtable::categoryById(LibraryDatabase& database, qint64 id)
{
    LibraryStatement select(database, "SELECT id, name, spelling FROM categories WHERE id = ?");
    return readCategory(select.run(id));
}

CategoryRow tagtable::insertCategory(LibraryDatabase& database, const QString& name)
{
    LibraryStatement insert(database, "INSERT INTO categories (name, spelling) VALUES (?, ?)");
    insert.run(keyColumn(name), spellingColumn(name));
    return {insert.lastInsertId(), tagname::kept(name), 0};
}

void tagtable::updateCategoryName(LibraryDatabase& database, qint64 id, const QString& name)
{
    LibraryStatement update(database, "UPDATE categories SET name = ?, spelling = ? WHERE id = ?");
    update.run(keyColumn(name), spellingColumn(name), id);
}
