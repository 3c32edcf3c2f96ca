// SPDX-License-Identifier: MIT
#include "host/library/requests/librarystore.h"

#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/librarytext.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"

#include <QSet>

namespace {

/// Messages go to logs whole; a name of any length must not.
QString shortened(const QString& name)
{
    constexpr int Longest = 80;
    return name.size() <= Longest ? name : name.left(Longest) + QChar(0x2026);
}

LibraryError nameTaken(const QString& name)
{
    return {LibraryStatus::NameTaken,
            librarytext::tr("The name \"%1\" is already taken.").arg(shortened(tagname::kept(name)))};
}

void requireName(const QString& name)
{
    if (tagname::kept(name).isEmpty())
        throw LibraryError(LibraryStatus::NameEmpty, librarytext::tr("The name is empty."));
}

void requireColor(int index)
{
    if (index < 0 || index >= TagPalette::Size)
        throw LibraryError(LibraryStatus::InvalidArgument, librarytext::tr("There is no colour %1.").arg(index));
}

}  // namespace

LibraryStore::LibraryStore(LibraryDatabase& database)
    : m_database(database)
{
}

LibraryOutcome LibraryStore::transact(const std::function<void(LibraryChange&)>& body)
{
    LibraryOutcome outcome;
    try {
        LibraryTransaction transaction(m_database, LibraryTransaction::Kind::Writing);
        body(outcome.change);
        transaction.commit();
    } catch (const LibraryError& error) {
        return {error.status(), error.message(), error.rejectedTags(), error.rejectedCategories(), {}};
    }
    return outcome;
}

LibraryOutcome LibraryStore::createTags(const QVector<NewTagRecord>& tags)
{
    return transact([&](LibraryChange& change) {
        for (const NewTagRecord& tag : tags) {
            try {
                createTag(tag, change);
            } catch (LibraryError& error) {
                throw error.rejectTags({{tag.id, tag.name, tag.colorIndex, 0}});
            }
        }
    });
}

void LibraryStore::createTag(const NewTagRecord& tag, LibraryChange& change)
{
    if (tag.id != 0)
        throw LibraryError(LibraryStatus::InvalidArgument, librarytext::tr("The library gives tags their ids itself."));
    requireName(tag.name);
    requireColor(tag.colorIndex);
    if (tagtable::tagByName(m_database, tag.name))
        throw nameTaken(tag.name);
    change.tagsCreated.append(tagtable::insertTag(m_database, tag.name, tag.colorIndex));
}

LibraryOutcome LibraryStore::renameTag(qint64 id, const QString& name)
{
    return transact([&](LibraryChange& change) {
        TagRow tag = requireTag(id);
        requireName(name);
        const std::optional<TagRow> owner = tagtable::tagByName(m_database, name);
        if (owner && owner->id != id)
            throw nameTaken(name).rejectTags({tag});
        if (tag.name == tagname::kept(name))
            return;
        tagtable::updateTagName(m_database, id, name);
        tag.name = tagname::kept(name);
        change.tagsChanged.append(tag);
    });
}

LibraryOutcome LibraryStore::setTagColor(qint64 id, int colorIndex)
{
    return transact([&](LibraryChange& change) {
        TagRow tag = requireTag(id);
        requireColor(colorIndex);
        if (tag.colorIndex == colorIndex)
            return;
        LibraryStatement update(m_database, "UPDATE tags SET color = ? WHERE id = ?");
        update.run(colorIndex, id);
        tag.colorIndex = colorIndex;
        change.tagsChanged.append(tag);
    });
}

LibraryOutcome LibraryStore::deleteTags(const QVector<qint64>& ids)
{
    return transact([&](LibraryChange& change) {
        requireTags(ids);
        for (qint64 id : ids) {
            LibraryStatement remove(m_database, "DELETE FROM tags WHERE id = ?");
            if (remove.run(id).rowsChanged() > 0)
                change.tagsDeleted.append(id);
        }
        change.filesChanged = !change.tagsDeleted.isEmpty();
    });
}

LibraryOutcome LibraryStore::addTagsToCategories(const QVector<qint64>& categoryIds, const QVector<qint64>& tagIds)
{
    return transact([&](LibraryChange& change) {
        requireFillableCategories(categoryIds);
        requireTags(tagIds);
        for (qint64 categoryId : categoryIds) {
            for (qint64 tagId : tagIds) {
                LibraryStatement insert(m_database,
                                        "INSERT OR IGNORE INTO tag_categories (category_id, tag_id) VALUES (?, ?)");
                if (insert.run(categoryId, tagId).rowsChanged() > 0)
                    change.linksAdded.append({categoryId, tagId});
            }
        }
    });
}

LibraryOutcome LibraryStore::removeTagsFromCategories(const QVector<qint64>& categoryIds, const QVector<qint64>& tagIds)
{
    return transact([&](LibraryChange& change) {
        requireFillableCategories(categoryIds);
        requireTags(tagIds);
        for (qint64 categoryId : categoryIds) {
            for (qint64 tagId : tagIds) {
                LibraryStatement remove(m_database, "DELETE FROM tag_categories WHERE category_id = ? AND tag_id = ?");
                if (remove.run(categoryId, tagId).rowsChanged() > 0)
                    change.linksRemoved.append({categoryId, tagId});
            }
        }
    });
}

LibraryOutcome LibraryStore::addCategory(const QString& name)
{
    return transact([&](LibraryChange& change) {
        requireName(name);
        requireFreeCategoryName(name, 0);
        change.categoriesCreated.append(tagtable::insertCategory(m_database, name));
    });
}

LibraryOutcome LibraryStore::removeCategory(qint64 id)
{
    return transact([&](LibraryChange& change) {
        requireUserCategory(id);
        LibraryStatement(m_database, "DELETE FROM categories WHERE id = ?").run(id);
        change.categoriesRemoved.append(id);
    });
}

LibraryOutcome LibraryStore::renameCategory(qint64 id, const QString& name)
{
    return transact([&](LibraryChange& change) {
        CategoryRow category = requireUserCategory(id);
        requireName(name);
        requireFreeCategoryName(name, id);
        if (category.name == tagname::kept(name))
            return;
        tagtable::updateCategoryName(m_database, id, name);
        category.name = tagname::kept(name);
        change.categoriesRenamed.append(category);
    });
}

void LibraryStore::requireTags(const QVector<qint64>& ids)
{
    QVector<TagRow> unknown;
    for (qint64 id : ids) {
        if (!tagtable::tagById(m_database, id))
            unknown.append({id, {}, 0, 0});
    }
    if (!unknown.isEmpty())
        throw LibraryError(LibraryStatus::UnknownId, librarytext::tr("There is no tag %1.").arg(unknown.first().id))
            .rejectTags(unknown);
}

TagRow LibraryStore::requireTag(qint64 id)
{
    requireTags({id});
    return *tagtable::tagById(m_database, id);
}

void LibraryStore::requireFillableCategories(const QVector<qint64>& ids)
{
    QVector<CategoryRow> unknown;
    for (qint64 id : ids) {
        if (!tagtable::categoryById(m_database, id))
            unknown.append({id, reservedcategory::name(id), 0});
    }
    if (!unknown.isEmpty())
        throw LibraryError(
            LibraryStatus::UnknownId,
            librarytext::tr("There is no category %1 that tags can be put into.").arg(unknown.first().id))
            .rejectCategories(unknown);
}

CategoryRow LibraryStore::requireUserCategory(qint64 id)
{
    const std::optional<CategoryRow> category = tagtable::categoryById(m_database, id);
    if (!category || id < reservedcategory::FirstUserId)
        throw LibraryError(LibraryStatus::UnknownId,
                           librarytext::tr("There is no category %1 that can be changed.").arg(id))
            .rejectCategories({{id, reservedcategory::name(id), 0}});
    return *category;
}

void LibraryStore::requireFreeCategoryName(const QString& name, qint64 ownId)
{
    const std::optional<CategoryRow> owner = tagtable::categoryByName(m_database, name);
    if (reservedcategory::isReservedName(name) || (owner && owner->id != ownId))
        throw nameTaken(name).rejectCategories({{ownId, name, 0}});
}
