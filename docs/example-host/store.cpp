// SPDX-License-Identifier: MIT
#include "store.h"

#include <algorithm>

namespace example {

TagStore::TagStore() = default;

qint64 TagStore::tagId(const QString& name) const
{
    const auto found =
        std::find_if(m_tags.cbegin(), m_tags.cend(), [&](const auto& tag) { return tag->name() == name; });
    return found == m_tags.cend() ? 0 : found.key();
}

qint64 TagStore::addTag(const QString& name, int colorIndex, int fileCount)
{
    return addTags(QVector<NewTag>{{name, colorIndex, fileCount}}).constFirst();
}

QVector<qint64> TagStore::addTags(const QVector<NewTag>& tags)
{
    QVector<qint64> ids;
    for (const NewTag& added : tags) {
        const qint64 id = ++m_lastTagId;
        const auto tag = QSharedPointer<Tag>::create(id, added.name, added.colorIndex, added.fileCount);
        m_tags.insert(id, tag);
        group(taggroupid::allTags)->join(id, tag);
        group(taggroupid::fixed)->join(id, tag);
        ids.append(id);
    }
    announce();
    return ids;
}

QVector<qint64> TagStore::addTags(const QStringList& names)
{
    QVector<NewTag> tags;
    for (const QString& name : names)
        tags.append({name});
    return addTags(tags);
}

void TagStore::renameTag(qint64 tagId, const QString& name)
{
    const auto renamed = tag(tagId);
    if (renamed && renamed->tagInfo())
        renamed->setRecord(name, renamed->tagInfo()->colorIndex());
}

void TagStore::setTagColor(qint64 tagId, int colorIndex)
{
    if (const auto colored = tag(tagId))
        colored->setRecord(colored->name(), colorIndex);
}

void TagStore::setFileCount(qint64 tagId, int fileCount)
{
    if (const auto counted = tag(tagId))
        counted->setFileCount(fileCount);
}

void TagStore::removeTags(const QVector<qint64>& tagIds)
{
    for (const qint64 id : tagIds) {
        const auto removed = m_tags.take(id);
        if (!removed)
            continue;
        removed->dropRecord();
        m_userGroupCounts.remove(id);
        for (const auto& group : qAsConst(m_manager->groups))
            group->leave(id);
    }
    announce();
}

QVector<qint64> TagStore::addGroups(const QStringList& names)
{
    QVector<qint64> ids;
    for (const QString& name : names) {
        ids.append(++m_lastGroupId);
        m_manager->groups[ids.last()] = QSharedPointer<Group>::create(ids.last(), name);
    }
    emit m_manager->signalAddTagGroups(ids);
    return ids;
}

void TagStore::renameGroup(qint64 groupId, const QString& name)
{
    if (const auto renamed = group(groupId))
        renamed->setName(name);
}

void TagStore::removeGroups(const QVector<qint64>& groupIds)
{
    QVector<qint64> freed;
    for (const qint64 id : groupIds) {
        const auto removed = id < taggroupid::firstUser ? nullptr : m_manager->groups.take(id);
        if (!removed)
            continue;
        removed->dropRecord();
        for (const qint64 tagId : removed->tagIds())
            --m_userGroupCounts[tagId];
        freed += removed->tagIds();
    }
    fileAnew(freed);
    emit m_manager->signalRemoveTagGroups(groupIds);
    announce();
}

void TagStore::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    for (const qint64 groupId : groupIds) {
        const auto joined = groupId < taggroupid::favorites ? nullptr : group(groupId);
        for (const qint64 id : tagIds) {
            if (!joined || !tag(id) || joined->contains(id))
                continue;
            joined->join(id, tag(id));
            m_userGroupCounts[id] += groupId >= taggroupid::firstUser ? 1 : 0;
        }
    }
    fileAnew(tagIds);
    announce();
}

void TagStore::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    for (const qint64 groupId : groupIds) {
        const auto left = groupId < taggroupid::favorites ? nullptr : group(groupId);
        for (const qint64 id : tagIds) {
            if (!left || !left->contains(id))
                continue;
            left->leave(id);
            m_userGroupCounts[id] -= groupId >= taggroupid::firstUser ? 1 : 0;
        }
    }
    fileAnew(tagIds);
    announce();
}

/// Category 0 holds the tags that no user category holds.
void TagStore::fileAnew(const QVector<qint64>& tagIds)
{
    for (const qint64 id : tagIds) {
        if (m_userGroupCounts.value(id) > 0)
            group(taggroupid::fixed)->leave(id);
        else if (tag(id))
            group(taggroupid::fixed)->join(id, tag(id));
    }
}

void TagStore::announce()
{
    // The receivers of one signal may remove a category.
    const auto groups = m_manager->groups;
    for (const auto& group : groups)
        group->announce();
}

}  // namespace example
