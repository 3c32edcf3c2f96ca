// SPDX-License-Identifier: MIT
#include "host/library/memory/librarymemory.h"

#include "host/library/records/librarycontents.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagname.h"

#include <algorithm>
#include <utility>

namespace {

/// Another entry may have taken over the name before this one gave it up: changes of other programs come summed up.
template <typename Entry>
void forgetName(QHash<QString, std::shared_ptr<Entry>>& entriesByKey, const std::shared_ptr<Entry>& entry)
{
    const auto named = entriesByKey.find(tagname::key(entry->name));
    if (named != entriesByKey.end() && *named == entry)
        entriesByKey.erase(named);
}

/// A tag that came and went within one change, or the other way round, did neither.
void settle(CategoryNotification& notification)
{
    if (notification.tagsAdded.isEmpty() || notification.tagsRemoved.isEmpty())
        return;
    const QSet<qint64> added(notification.tagsAdded.cbegin(), notification.tagsAdded.cend());
    const QSet<qint64> removed(notification.tagsRemoved.cbegin(), notification.tagsRemoved.cend());
    const auto drop = [](QVector<qint64>& ids, const QSet<qint64>& others) {
        ids.erase(std::remove_if(ids.begin(), ids.end(), [&](qint64 id) { return others.contains(id); }), ids.end());
    };
    drop(notification.tagsAdded, removed);
    drop(notification.tagsRemoved, added);
}

}  // namespace

LibraryMemory::LibraryMemory()
    : m_allTags(addCategory(reservedcategory::allTags, reservedcategory::name(reservedcategory::allTags)))
    , m_unsorted(addCategory(reservedcategory::unsorted, reservedcategory::name(reservedcategory::unsorted)))
{
    addCategory(reservedcategory::favorites, reservedcategory::name(reservedcategory::favorites));
}

LibraryMemory::~LibraryMemory() = default;

void LibraryMemory::load(const LibraryContents& contents)
{
    reserveFor(contents.tags.size());
    for (const TagRow& row : contents.tags)
        addTag(row);
    for (const CategoryRow& row : contents.categories) {
        if (row.id >= reservedcategory::firstUserId)
            addCategory(row.id, row.name)->tags.reserve(row.tagCount);
    }
    addLinks(contents.links);
    m_notifications = {};
    m_notificationIndex.clear();
}

LibraryChange LibraryMemory::changeTo(const LibraryContents& contents) const
{
    LibraryChange change;
    compareTags(contents.tags, change);
    compareCategories(contents.categories, change);
    compareLinks(contents.links, change);
    return change;
}

void LibraryMemory::compareTags(const QVector<TagRow>& rows, LibraryChange& change) const
{
    QSet<qint64> present;
    for (const TagRow& row : rows) {
        present.insert(row.id);
        const std::shared_ptr<TagEntry> known = tag(row.id);
        if (!known) {
            change.tagsCreated.append(row);
            continue;
        }
        if (known->name != row.name || known->colorIndex != row.colorIndex)
            change.tagsChanged.append(row);
        if (known->fileCount != row.fileCount)
            change.fileCountChanges.insert(row.id, row.fileCount - known->fileCount);
    }
    for (const auto& known : qAsConst(m_allTags->tags)) {
        if (!present.contains(known->id))
            change.tagsDeleted.append(known->id);
    }
}

void LibraryMemory::compareCategories(const QVector<CategoryRow>& rows, LibraryChange& change) const
{
    QSet<qint64> present;
    for (const CategoryRow& row : rows) {
        present.insert(row.id);
        const std::shared_ptr<CategoryEntry> known = category(row.id);
        if (!known)
            change.categoriesCreated.append(row);
        else if (row.id >= reservedcategory::firstUserId && known->name != row.name)
            change.categoriesRenamed.append(row);
    }
    for (const auto& known : m_categories) {
        if (known->id >= reservedcategory::firstUserId && !present.contains(known->id))
            change.categoriesRemoved.append(known->id);
    }
}

void LibraryMemory::compareLinks(const QVector<TagLink>& rows, LibraryChange& change) const
{
    QHash<qint64, QSet<qint64>> present;
    for (const TagLink& link : rows) {
        present[link.categoryId].insert(link.tagId);
        const std::shared_ptr<CategoryEntry> known = category(link.categoryId);
        if (!known || !known->tags.contains(link.tagId))
            change.linksAdded.append(link);
    }
    for (const auto& known : m_categories) {
        if (known->id < reservedcategory::favorites)
            continue;
        const QSet<qint64> tags = present.value(known->id);
        for (const auto& entry : qAsConst(known->tags)) {
            if (!tags.contains(entry->id))
                change.linksRemoved.append({known->id, entry->id});
        }
    }
}

LibraryNotifications LibraryMemory::apply(const LibraryChange& change)
{
    createCategories(change.categoriesCreated);
    renameCategories(change.categoriesRenamed);
    createTags(change.tagsCreated);
    changeTags(change.tagsChanged);
    countFiles(change.fileCountChanges);
    addLinks(change.linksAdded);
    removeLinks(change.linksRemoved);
    deleteTags(change.tagsDeleted);
    removeCategories(change.categoriesRemoved);
    std::for_each(m_notifications.categories.begin(), m_notifications.categories.end(), settle);
    m_notifications.filesChanged = change.filesChanged;
    m_notificationIndex.clear();
    m_updatedTags.clear();
    return std::exchange(m_notifications, {});
}

std::shared_ptr<CategoryEntry> LibraryMemory::category(qint64 id) const
{
    return m_categories.value(id);
}

std::shared_ptr<CategoryEntry> LibraryMemory::categoryByName(const QString& name) const
{
    return m_categoriesByKey.value(tagname::key(name));
}

QVector<std::shared_ptr<CategoryEntry>> LibraryMemory::userCategories() const
{
    QVector<std::shared_ptr<CategoryEntry>> categories;
    categories.reserve(m_categories.size());
    for (const auto& category : m_categories) {
        if (category->id >= reservedcategory::firstUserId)
            categories.append(category);
    }
    std::sort(categories.begin(), categories.end(), [](const auto& a, const auto& b) { return a->id < b->id; });
    return categories;
}

std::shared_ptr<TagEntry> LibraryMemory::tagByName(const QString& name) const
{
    return m_tagsByKey.value(tagname::key(name));
}

std::shared_ptr<TagEntry> LibraryMemory::tag(qint64 id) const
{
    return m_allTags->tags.value(id);
}

std::shared_ptr<CategoryEntry> LibraryMemory::addCategory(qint64 id, const QString& name)
{
    auto category = std::make_shared<CategoryEntry>();
    category->id = id;
    category->name = name;
    m_categories.insert(id, category);
    m_categoriesByKey.insert(tagname::key(name), category);
    return category;
}

void LibraryMemory::reserveFor(int tagCount)
{
    m_tagsByKey.reserve(tagCount);
    m_allTags->tags.reserve(tagCount);
    m_unsorted->tags.reserve(tagCount);
}

std::shared_ptr<TagEntry> LibraryMemory::addTag(const TagRow& row)
{
    auto tag = std::make_shared<TagEntry>();
    tag->id = row.id;
    tag->name = row.name;
    tag->colorIndex = row.colorIndex;
    tag->fileCount = row.fileCount;
    m_tagsByKey.insert(tagname::key(row.name), tag);
    m_allTags->tags.insert(row.id, tag);
    m_unsorted->tags.insert(row.id, tag);
    return tag;
}

bool LibraryMemory::isUnsorted(const TagEntry& tag) const
{
    return std::all_of(tag.categories.cbegin(), tag.categories.cend(),
                       [](qint64 id) { return id < reservedcategory::firstUserId; });
}

void LibraryMemory::createTags(const QVector<TagRow>& rows)
{
    for (const TagRow& row : rows) {
        addTag(row);
        notificationOf(m_allTags).tagsAdded.append(row.id);
        notificationOf(m_unsorted).tagsAdded.append(row.id);
    }
}

void LibraryMemory::changeTags(const QVector<TagRow>& rows)
{
    for (const TagRow& row : rows) {
        const std::shared_ptr<TagEntry> entry = tag(row.id);
        if (!entry)
            continue;
        forgetName(m_tagsByKey, entry);
        entry->name = row.name;
        entry->colorIndex = row.colorIndex;
        m_tagsByKey.insert(tagname::key(row.name), entry);
        noteUpdated(entry);
    }
}

void LibraryMemory::countFiles(const QHash<qint64, int>& changes)
{
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        const std::shared_ptr<TagEntry> entry = tag(change.key());
        if (!entry || change.value() == 0)
            continue;
        entry->fileCount += change.value();
        noteUpdated(entry);
    }
}

void LibraryMemory::deleteTags(const QVector<qint64>& ids)
{
    for (qint64 id : ids) {
        const std::shared_ptr<TagEntry> entry = tag(id);
        if (!entry)
            continue;
        entry->gone = true;
        forgetName(m_tagsByKey, entry);
        for (qint64 categoryId : std::exchange(entry->categories, {}))
            leave(category(categoryId), id);
        leave(m_unsorted, id);
        leave(m_allTags, id);
    }
}

void LibraryMemory::createCategories(const QVector<CategoryRow>& rows)
{
    for (const CategoryRow& row : rows) {
        addCategory(row.id, row.name);
        m_notifications.categoriesAdded.append(row.id);
    }
}

void LibraryMemory::renameCategories(const QVector<CategoryRow>& rows)
{
    for (const CategoryRow& row : rows) {
        const std::shared_ptr<CategoryEntry> entry = category(row.id);
        if (!entry)
            continue;
        forgetName(m_categoriesByKey, entry);
        entry->name = row.name;
        m_categoriesByKey.insert(tagname::key(row.name), entry);
        notificationOf(entry).updated = true;
    }
}

void LibraryMemory::removeCategories(const QVector<qint64>& ids)
{
    for (qint64 id : ids) {
        const std::shared_ptr<CategoryEntry> entry = m_categories.take(id);
        if (!entry)
            continue;
        entry->gone = true;
        forgetName(m_categoriesByKey, entry);
        const auto tags = entry->tags;
        for (const auto& tag : tags)
            leaveCategory(entry, tag);
        m_notifications.categoriesRemoved.append(id);
    }
}

void LibraryMemory::addLinks(const QVector<TagLink>& links)
{
    for (const TagLink& link : links) {
        const std::shared_ptr<CategoryEntry> category = this->category(link.categoryId);
        const std::shared_ptr<TagEntry> entry = tag(link.tagId);
        if (!category || !entry || category->tags.contains(entry->id))
            continue;
        entry->categories.append(category->id);
        join(category, entry);
        if (category->id >= reservedcategory::firstUserId)
            leave(m_unsorted, entry->id);
    }
}

void LibraryMemory::removeLinks(const QVector<TagLink>& links)
{
    for (const TagLink& link : links) {
        const std::shared_ptr<CategoryEntry> category = this->category(link.categoryId);
        const std::shared_ptr<TagEntry> entry = tag(link.tagId);
        if (category && entry)
            leaveCategory(category, entry);
    }
}

void LibraryMemory::noteUpdated(const std::shared_ptr<TagEntry>& tag)
{
    if (m_updatedTags.contains(tag->id))
        return;
    m_updatedTags.insert(tag->id);
    m_notifications.tagsUpdated.append(tag);
}

void LibraryMemory::join(const std::shared_ptr<CategoryEntry>& category, const std::shared_ptr<TagEntry>& tag)
{
    if (category->tags.contains(tag->id))
        return;
    category->tags.insert(tag->id, tag);
    notificationOf(category).tagsAdded.append(tag->id);
}

void LibraryMemory::leave(const std::shared_ptr<CategoryEntry>& category, qint64 tagId)
{
    if (category && category->tags.remove(tagId) > 0)
        notificationOf(category).tagsRemoved.append(tagId);
}

void LibraryMemory::leaveCategory(const std::shared_ptr<CategoryEntry>& category, const std::shared_ptr<TagEntry>& tag)
{
    tag->categories.removeOne(category->id);
    leave(category, tag->id);
    if (isUnsorted(*tag))
        join(m_unsorted, tag);
}

CategoryNotification& LibraryMemory::notificationOf(const std::shared_ptr<CategoryEntry>& category)
{
    const auto known = m_notificationIndex.constFind(category->id);
    if (known != m_notificationIndex.constEnd())
        return m_notifications.categories[*known];
    m_notificationIndex.insert(category->id, m_notifications.categories.size());
    m_notifications.categories.append({category, {}, {}, false});
    return m_notifications.categories.last();
}
