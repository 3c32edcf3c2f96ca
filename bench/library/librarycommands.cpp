// SPDX-License-Identifier: MIT
#include "bench/library/librarycommands.h"

#include "bench/library/librarycontent.h"
#include "bench/library/sqliteprogram.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"

namespace {

using bench::MeasuredCommand;

QByteArray literal(const QString& name)
{
    return bench::SqliteProgram::quoted(tagname::key(name));
}

QByteArray literal(qint64 number)
{
    return QByteArray::number(number);
}

MeasuredCommand createTag(const QString& name)
{
    return {"create_tag",
            [=](ITagAction& tags, ITagGroupAction&) {
                return tags.createTags({{name, 0, 1}});
            },
            "INSERT INTO tags (name, color) VALUES (" + literal(name) + ", 1);"};
}

MeasuredCommand renameTag(qint64 id, const QString& name)
{
    return {"rename_tag", [=](ITagAction& tags, ITagGroupAction&) { return tags.renameTag(id, name); },
            "UPDATE tags SET name = " + literal(name) + ", spelling = NULL WHERE id = " + literal(id) + ';'};
}

MeasuredCommand recolourTag(qint64 id)
{
    const int unlike = static_cast<int>((id + 1) % TagPalette::size);
    return {"recolour_tag", [=](ITagAction& tags, ITagGroupAction&) { return tags.setTagColor(id, unlike); },
            "UPDATE tags SET color = " + literal(unlike) + " WHERE id = " + literal(id) + ';'};
}

MeasuredCommand addToCategory(const char* operation, qint64 category, qint64 id)
{
    return {operation, [=](ITagAction& tags, ITagGroupAction&) { return tags.addTagsToGroups({category}, {id}); },
            "BEGIN; INSERT INTO tag_categories VALUES (" + literal(category) + ", " + literal(id) +
                "); UPDATE categories SET tag_count = tag_count + 1 WHERE id = " + literal(category) + "; COMMIT;"};
}

MeasuredCommand removeFromCategory(qint64 category, qint64 id)
{
    return {"remove_from_category",
            [=](ITagAction& tags, ITagGroupAction&) { return tags.removeTagsFromGroups({category}, {id}); },
            "BEGIN; DELETE FROM tag_categories WHERE category_id = " + literal(category) +
                " AND tag_id = " + literal(id) +
                "; UPDATE categories SET tag_count = tag_count - 1 WHERE id = " + literal(category) + "; COMMIT;"};
}

MeasuredCommand createCategory(const QString& name)
{
    return {"create_category", [=](ITagAction&, ITagGroupAction& categories) { return categories.addTagGroup(name); },
            "INSERT INTO categories (name) VALUES (" + literal(name) + ");"};
}

MeasuredCommand renameCategory(qint64 id, const QString& name)
{
    return {"rename_category",
            [=](ITagAction&, ITagGroupAction& categories) { return categories.renameTagGroup(id, name); },
            "UPDATE categories SET name = " + literal(name) + ", spelling = NULL WHERE id = " + literal(id) + ';'};
}

MeasuredCommand deleteCategory(qint64 id)
{
    return {"delete_category", [=](ITagAction&, ITagGroupAction& categories) { return categories.removeTagGroup(id); },
            "UPDATE categories SET deleted = 1 WHERE id = " + literal(id) + ';'};
}

MeasuredCommand deleteTag(const char* operation, qint64 id)
{
    return {operation, [=](ITagAction& tags, ITagGroupAction&) { return tags.deleteTags({id}); },
            "UPDATE tags SET deleted = 1 WHERE id = " + literal(id) + ';'};
}

}  // namespace

QVector<bench::MeasuredCommand> bench::libraryCommands(const LibraryContent& content, int turn)
{
    const qint64 rare = content.tags() - 1 - 2 * turn;  // one before the next, so that it is in no favourites
    const qint64 category = reservedcategory::firstUserId + turn;
    const qint64 emptied = category + content.categories() / 2;
    const qint64 created = category + content.categories();
    QVector<MeasuredCommand> commands{createTag(content.freeName(turn)),
                                      renameTag(rare, content.freeName(libraryTurns + turn)),
                                      recolourTag(rare),
                                      addToCategory("favourite_tag", reservedcategory::favorites, rare),
                                      createCategory(QStringLiteral("New category %1").arg(turn)),
                                      addToCategory("add_to_category", created, rare),
                                      removeFromCategory(created, rare),
                                      renameCategory(category, QStringLiteral("Renamed category %1").arg(turn)),
                                      deleteCategory(emptied),
                                      deleteTag("delete_rare_tag", rare)};
    if (turn < LibraryContent::tagsOfFile)
        commands.append(deleteTag("delete_frequent_tag", 1 + turn));
    return commands;
}
