// SPDX-License-Identifier: MIT
#include "host/library/database/librarysnapshot.h"

#include "host/library/database/librarytransaction.h"
#include "host/library/database/tagtable.h"

#include <algorithm>

namespace {

template <typename Row>
void sortById(QVector<Row>& rows)
{
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.id < b.id; });
}

template <typename Row>
QHash<qint64, Row> byId(const QVector<Row>& rows)
{
    QHash<qint64, Row> hash;
    hash.reserve(rows.size());
    for (const Row& row : rows)
        hash.insert(row.id, row);
    return hash;
}

template <typename Row>
QVector<qint64> missingIds(const QHash<qint64, Row>& rows, const QHash<qint64, Row>& later)
{
    QVector<qint64> ids;
    for (auto row = rows.keyBegin(); row != rows.keyEnd(); ++row) {
        if (!later.contains(*row))
            ids.append(*row);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

void compareTags(const LibrarySnapshot& before, const LibrarySnapshot& later, LibraryChange& change)
{
    for (const TagRow& row : later.tags) {
        const auto known = before.tags.constFind(row.id);
        if (known == before.tags.constEnd()) {
            change.tagsCreated.append(row);
            continue;
        }
        if (known->name != row.name || known->colorIndex != row.colorIndex)
            change.tagsChanged.append(row);
        if (known->fileCount != row.fileCount)
            change.fileCountChanges.insert(row.id, row.fileCount - known->fileCount);
    }
    sortById(change.tagsCreated);
    change.tagsDeleted = missingIds(before.tags, later.tags);
}

void compareCategories(const LibrarySnapshot& before, const LibrarySnapshot& later, LibraryChange& change)
{
    for (const CategoryRow& row : later.categories) {
        const auto known = before.categories.constFind(row.id);
        if (known == before.categories.constEnd())
            change.categoriesCreated.append(row);
        else if (known->name != row.name)
            change.categoriesRenamed.append(row);
    }
    sortById(change.categoriesCreated);
    change.categoriesRemoved = missingIds(before.categories, later.categories);
}

void compareLinks(const LibrarySnapshot& before, const LibrarySnapshot& later, LibraryChange& change)
{
    for (const TagLink& link : later.links) {
        if (!before.links.contains(link))
            change.linksAdded.append(link);
    }
    for (const TagLink& link : before.links) {
        if (!later.links.contains(link) && later.tags.contains(link.tagId) &&
            later.categories.contains(link.categoryId))
            change.linksRemoved.append(link);
    }
}

}  // namespace

LibrarySnapshot LibrarySnapshot::read(LibraryDatabase& database)
{
    const LibraryTransaction transaction(database, LibraryTransaction::Kind::Reading);
    const QVector<TagLink> links = tagtable::tagLinks(database);
    return {byId(tagtable::tags(database)), byId(tagtable::categories(database)),
            QSet<TagLink>(links.cbegin(), links.cend())};
}

void LibrarySnapshot::apply(const LibraryChange& change)
{
    for (const CategoryRow& row : change.categoriesCreated)
        categories.insert(row.id, row);
    for (const CategoryRow& row : change.categoriesRenamed) {
        if (categories.contains(row.id))
            categories[row.id].name = row.name;
    }
    for (const TagRow& row : change.tagsCreated)
        tags.insert(row.id, row);
    for (const TagRow& row : change.tagsChanged) {
        const auto known = tags.find(row.id);
        if (known != tags.end())
            *known = {row.id, row.name, row.colorIndex, known->fileCount};
    }
    for (auto files = change.fileCountChanges.cbegin(); files != change.fileCountChanges.cend(); ++files) {
        const auto known = tags.find(files.key());
        if (known != tags.end())
            known->fileCount += files.value();
    }
    for (qint64 id : change.tagsDeleted)
        tags.remove(id);
    for (qint64 id : change.categoriesRemoved)
        categories.remove(id);
    applyLinks(change);
}

void LibrarySnapshot::applyLinks(const LibraryChange& change)
{
    for (const TagLink& link : change.linksAdded) {
        if (tags.contains(link.tagId) && categories.contains(link.categoryId))
            links.insert(link);
    }
    for (const TagLink& link : change.linksRemoved)
        links.remove(link);
}

LibraryChange LibrarySnapshot::changeTo(const LibrarySnapshot& later) const
{
    LibraryChange change;
    compareTags(*this, later, change);
    compareCategories(*this, later, change);
    compareLinks(*this, later, change);
    return change;
}
