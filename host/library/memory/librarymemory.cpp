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
void settle(GroupNotification& notification)
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
    : m_allTags(addGroup(reservedcategory::AllTags, reservedcategory::name(reservedcategory::AllTags)))
    , m_uncategorized(
          addGroup(reservedcategory::Uncategorized, reservedcategory::name(reservedcategory::Uncategorized)))
{
    addGroup(reservedcategory::Favorites, reservedcategory::name(reservedcategory::Favorites));
}

LibraryMemory::~LibraryMemory() = default;

void LibraryMemory::load(const LibraryContents& contents)
{
    reserveFor(contents.tags.size());
    for (const TagRow& row : contents.tags)
        addTag(row);
    for (const CategoryRow& row : contents.categories) {
        if (row.id >= reservedcategory::FirstUserId)
            addGroup(row.id, row.name)->tags.reserve(row.tagCount);
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
        const std::shared_ptr<GroupEntry> known = group(row.id);
        if (!known)
            change.categoriesCreated.append(row);
        else if (row.id >= reservedcategory::FirstUserId && known->name != row.name)
            change.categoriesRenamed.append(row);
    }
    for (const auto& known : m_groups) {
        if (known->id >= reservedcategory::FirstUserId && !present.contains(known->id))
            change.categoriesRemoved.append(known->id);
    }
}

void LibraryMemory::compareLinks(const QVector<TagLink>& rows, LibraryChange& change) const
{
    QHash<qint64, QSet<qint64>> present;
    for (const TagLink& link : rows) {
        present[link.categoryId].insert(link.tagId);
        const std::shared_ptr<GroupEntry> known = group(link.categoryId);
        if (!known || !known->tags.contains(link.tagId))
            change.linksAdded.append(link);
    }
    for (const auto& known : m_groups) {
        if (known->id < reservedcategory::Favorites)
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
    std::for_each(m_notifications.groups.begin(), m_notifications.groups.end(), settle);
    m_notifications.filesChanged = change.filesChanged;
    m_notificationIndex.clear();
    m_updatedTags.clear();
    return std::exchange(m_notifications, {});
}

std::shared_ptr<GroupEntry> LibraryMemory::group(qint64 id) const
{
    return m_groups.value(id);
}

std::shared_ptr<GroupEntry> LibraryMemory::groupByName(const QString& name) const
{
    return m_groupsByKey.value(tagname::key(name));
}

QVector<std::shared_ptr<GroupEntry>> LibraryMemory::userGroups() const
{
    QVector<std::shared_ptr<GroupEntry>> groups;
    groups.reserve(m_groups.size());
    for (const auto& group : m_groups) {
        if (group->id >= reservedcategory::FirstUserId)
            groups.append(group);
    }
    std::sort(groups.begin(), groups.end(), [](const auto& a, const auto& b) { return a->id < b->id; });
    return groups;
}

std::shared_ptr<TagEntry> LibraryMemory::tagByName(const QString& name) const
{
    return m_tagsByKey.value(tagname::key(name));
}

std::shared_ptr<TagEntry> LibraryMemory::tag(qint64 id) const
{
    return m_allTags->tags.value(id);
}

std::shared_ptr<GroupEntry> LibraryMemory::addGroup(qint64 id, const QString& name)
{
    auto group = std::make_shared<GroupEntry>();
    group->id = id;
    group->name = name;
    m_groups.insert(id, group);
    m_groupsByKey.insert(tagname::key(name), group);
    return group;
}

void LibraryMemory::reserveFor(int tagCount)
{
    m_tagsByKey.reserve(tagCount);
    m_allTags->tags.reserve(tagCount);
    m_uncategorized->tags.reserve(tagCount);
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
    m_uncategorized->tags.insert(row.id, tag);
    return tag;
}

bool LibraryMemory::isUncategorized(const TagEntry& tag) const
{
    return std::all_of(tag.categories.cbegin(), tag.categories.cend(),
                       [](qint64 id) { return id < reservedcategory::FirstUserId; });
}

void LibraryMemory::createTags(const QVector<TagRow>& rows)
{
    for (const TagRow& row : rows) {
        addTag(row);
        notificationOf(m_allTags).tagsAdded.append(row.id);
        notificationOf(m_uncategorized).tagsAdded.append(row.id);
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
            leave(group(categoryId), id);
        leave(m_uncategorized, id);
        leave(m_allTags, id);
    }
}

void LibraryMemory::createCategories(const QVector<CategoryRow>& rows)
{
    for (const CategoryRow& row : rows) {
        addGroup(row.id, row.name);
        m_notifications.groupsAdded.append(row.id);
    }
}

void LibraryMemory::renameCategories(const QVector<CategoryRow>& rows)
{
    for (const CategoryRow& row : rows) {
        const std::shared_ptr<GroupEntry> entry = group(row.id);
        if (!entry)
            continue;
        forgetName(m_groupsByKey, entry);
        entry->name = row.name;
        m_groupsByKey.insert(tagname::key(row.name), entry);
        notificationOf(entry).updated = true;
    }
}

void LibraryMemory::removeCategories(const QVector<qint64>& ids)
{
    for (qint64 id : ids) {
        const std::shared_ptr<GroupEntry> entry = m_groups.take(id);
        if (!entry)
            continue;
        entry->gone = true;
        forgetName(m_groupsByKey, entry);
        const auto tags = entry->tags;
        for (const auto& tag : tags)
            leaveCategory(entry, tag);
        m_notifications.groupsRemoved.append(id);
    }
}

void LibraryMemory::addLinks(const QVector<TagLink>& links)
{
    for (const TagLink& link : links) {
        const std::shared_ptr<GroupEntry> category = group(link.categoryId);
        const std::shared_ptr<TagEntry> entry = tag(link.tagId);
        if (!category || !entry || category->tags.contains(entry->id))
            continue;
        entry->categories.append(category->id);
        join(category, entry);
        if (category->id >= reservedcategory::FirstUserId)
            leave(m_uncategorized, entry->id);
    }
}

void LibraryMemory::removeLinks(const QVector<TagLink>& links)
{
    for (const TagLink& link : links) {
        const std::shared_ptr<GroupEntry> category = group(link.categoryId);
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

void LibraryMemory::join(const std::shared_ptr<GroupEntry>& group, const std::shared_ptr<TagEntry>& tag)
{
    if (group->tags.contains(tag->id))
        return;
    group->tags.insert(tag->id, tag);
    notificationOf(group).tagsAdded.append(tag->id);
}

void LibraryMemory::leave(const std::shared_ptr<GroupEntry>& group, qint64 tagId)
{
    if (group && group->tags.remove(tagId) > 0)
        notificationOf(group).tagsRemoved.append(tagId);
}

void LibraryMemory::leaveCategory(const std::shared_ptr<GroupEntry>& group, const std::shared_ptr<TagEntry>& tag)
{
    tag->categories.removeOne(group->id);
    leave(group, tag->id);
    if (isUncategorized(*tag))
        join(m_uncategorized, tag);
}

GroupNotification& LibraryMemory::notificationOf(const std::shared_ptr<GroupEntry>& group)
{
    const auto known = m_notificationIndex.constFind(group->id);
    if (known != m_notificationIndex.constEnd())
        return m_notifications.groups[*known];
    m_notificationIndex.insert(group->id, m_notifications.groups.size());
    m_notifications.groups.append({group, {}, {}, false});
    return m_notifications.groups.last();
}
