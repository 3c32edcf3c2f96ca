// SPDX-License-Identifier: MIT
#include "host/library/memory/libraryview.h"

#include "host/library/database/librarysnapshot.h"
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
void settle(GroupNews& news)
{
    if (news.tagsAdded.isEmpty() || news.tagsRemoved.isEmpty())
        return;
    const QSet<qint64> added(news.tagsAdded.cbegin(), news.tagsAdded.cend());
    const QSet<qint64> removed(news.tagsRemoved.cbegin(), news.tagsRemoved.cend());
    const auto drop = [](QVector<qint64>& ids, const QSet<qint64>& others) {
        ids.erase(std::remove_if(ids.begin(), ids.end(), [&](qint64 id) { return others.contains(id); }), ids.end());
    };
    drop(news.tagsAdded, removed);
    drop(news.tagsRemoved, added);
}

}  // namespace

LibraryView::LibraryView()
    : m_allTags(addGroup(reservedcategory::AllTags, reservedcategory::name(reservedcategory::AllTags)))
    , m_uncategorized(
          addGroup(reservedcategory::Uncategorized, reservedcategory::name(reservedcategory::Uncategorized)))
{
    addGroup(reservedcategory::Favorites, reservedcategory::name(reservedcategory::Favorites));
}

LibraryView::~LibraryView() = default;

void LibraryView::load(const LibrarySnapshot& snapshot)
{
    reserveFor(snapshot.tags.size());
    for (const TagRow& row : snapshot.tags)
        addTag(row);
    for (const CategoryRow& row : snapshot.categories) {
        if (row.id >= reservedcategory::FirstUserId)
            addGroup(row.id, row.name)->tags.reserve(row.tagCount);
    }
    addLinks(QVector<TagLink>(snapshot.links.cbegin(), snapshot.links.cend()));
    m_news = {};
    m_newsIndex.clear();
}

LibraryNews LibraryView::apply(const LibraryChange& change)
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
    std::for_each(m_news.groups.begin(), m_news.groups.end(), settle);
    m_news.filesChanged = change.filesChanged;
    m_newsIndex.clear();
    m_updatedTags.clear();
    return std::exchange(m_news, {});
}

std::shared_ptr<GroupEntry> LibraryView::group(qint64 id) const
{
    return m_groups.value(id);
}

std::shared_ptr<GroupEntry> LibraryView::groupByName(const QString& name) const
{
    return m_groupsByKey.value(tagname::key(name));
}

QVector<std::shared_ptr<GroupEntry>> LibraryView::userGroups() const
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

std::shared_ptr<TagEntry> LibraryView::tagByName(const QString& name) const
{
    return m_tagsByKey.value(tagname::key(name));
}

std::shared_ptr<TagEntry> LibraryView::tag(qint64 id) const
{
    return m_allTags->tags.value(id);
}

std::shared_ptr<GroupEntry> LibraryView::addGroup(qint64 id, const QString& name)
{
    auto group = std::make_shared<GroupEntry>();
    group->id = id;
    group->name = name;
    m_groups.insert(id, group);
    m_groupsByKey.insert(tagname::key(name), group);
    return group;
}

void LibraryView::reserveFor(int tagCount)
{
    m_tagsByKey.reserve(tagCount);
    m_allTags->tags.reserve(tagCount);
    m_uncategorized->tags.reserve(tagCount);
}

std::shared_ptr<TagEntry> LibraryView::addTag(const TagRow& row)
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

bool LibraryView::isUncategorized(const TagEntry& tag) const
{
    return std::all_of(tag.categories.cbegin(), tag.categories.cend(),
                       [](qint64 id) { return id < reservedcategory::FirstUserId; });
}

void LibraryView::createTags(const QVector<TagRow>& rows)
{
    for (const TagRow& row : rows) {
        addTag(row);
        newsOf(m_allTags).tagsAdded.append(row.id);
        newsOf(m_uncategorized).tagsAdded.append(row.id);
    }
}

void LibraryView::changeTags(const QVector<TagRow>& rows)
{
    for (const TagRow& row : rows) {
        const std::shared_ptr<TagEntry> entry = tag(row.id);
        if (!entry)
            continue;
        forgetName(m_tagsByKey, entry);
        entry->name = row.name;
        entry->colorIndex = row.colorIndex;
        m_tagsByKey.insert(tagname::key(row.name), entry);
        tellUpdated(entry);
    }
}

void LibraryView::countFiles(const QHash<qint64, int>& changes)
{
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        const std::shared_ptr<TagEntry> entry = tag(change.key());
        if (!entry || change.value() == 0)
            continue;
        entry->fileCount += change.value();
        tellUpdated(entry);
    }
}

void LibraryView::deleteTags(const QVector<qint64>& ids)
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

void LibraryView::createCategories(const QVector<CategoryRow>& rows)
{
    for (const CategoryRow& row : rows) {
        addGroup(row.id, row.name);
        m_news.groupsAdded.append(row.id);
    }
}

void LibraryView::renameCategories(const QVector<CategoryRow>& rows)
{
    for (const CategoryRow& row : rows) {
        const std::shared_ptr<GroupEntry> entry = group(row.id);
        if (!entry)
            continue;
        forgetName(m_groupsByKey, entry);
        entry->name = row.name;
        m_groupsByKey.insert(tagname::key(row.name), entry);
        newsOf(entry).updated = true;
    }
}

void LibraryView::removeCategories(const QVector<qint64>& ids)
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
        m_news.groupsRemoved.append(id);
    }
}

void LibraryView::addLinks(const QVector<TagLink>& links)
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

void LibraryView::removeLinks(const QVector<TagLink>& links)
{
    for (const TagLink& link : links) {
        const std::shared_ptr<GroupEntry> category = group(link.categoryId);
        const std::shared_ptr<TagEntry> entry = tag(link.tagId);
        if (category && entry)
            leaveCategory(category, entry);
    }
}

void LibraryView::tellUpdated(const std::shared_ptr<TagEntry>& tag)
{
    if (m_updatedTags.contains(tag->id))
        return;
    m_updatedTags.insert(tag->id);
    m_news.tagsUpdated.append(tag);
}

void LibraryView::join(const std::shared_ptr<GroupEntry>& group, const std::shared_ptr<TagEntry>& tag)
{
    if (group->tags.contains(tag->id))
        return;
    group->tags.insert(tag->id, tag);
    newsOf(group).tagsAdded.append(tag->id);
}

void LibraryView::leave(const std::shared_ptr<GroupEntry>& group, qint64 tagId)
{
    if (group && group->tags.remove(tagId) > 0)
        newsOf(group).tagsRemoved.append(tagId);
}

void LibraryView::leaveCategory(const std::shared_ptr<GroupEntry>& group, const std::shared_ptr<TagEntry>& tag)
{
    tag->categories.removeOne(group->id);
    leave(group, tag->id);
    if (isUncategorized(*tag))
        join(m_uncategorized, tag);
}

GroupNews& LibraryView::newsOf(const std::shared_ptr<GroupEntry>& group)
{
    const auto known = m_newsIndex.constFind(group->id);
    if (known != m_newsIndex.constEnd())
        return m_news.groups[*known];
    m_newsIndex.insert(group->id, m_news.groups.size());
    m_news.groups.append({group, {}, {}, false});
    return m_news.groups.last();
}
