// SPDX-License-Identifier: MIT
#include "tests/support/memoryhost.h"

#include "tests/support/memoryactions.h"

#include <QPointer>

#include <algorithm>

namespace {

constexpr qint64 firstUserGroup = 2;

}  // namespace

MemoryHost::MemoryHost(QObject* parent)
    : QObject(parent)
    , m_library(QSharedPointer<MemoryLibrary>::create())
{
    const auto sink = [host = QPointer<MemoryHost>(this)](const MemoryRequest& request) {
        return host ? host->takeRequest(request) : qint64(0);
    };
    m_library->tagActionObject = QSharedPointer<MemoryTagAction>::create(sink);
    m_library->groupActionObject = QSharedPointer<MemoryGroupAction>::create(sink);
    m_library->manager = QSharedPointer<MemoryManager>::create();
    auto& groups = m_library->manager->groups;
    groups[AllTags] = QSharedPointer<MemoryGroup>::create(AllTags, QStringLiteral("All Tags"));
    groups[Uncategorized] = QSharedPointer<MemoryGroup>::create(Uncategorized, QStringLiteral("Uncategorized"));
    groups[Favorites] = QSharedPointer<MemoryGroup>::create(Favorites, QStringLiteral("Favorites"));
}

MemoryHost::MemoryHost(const QStringList& tagNames)
    : MemoryHost()
{
    addTags(tagNames);
}

MemoryHost::~MemoryHost() = default;

qint64 MemoryHost::tagId(const QString& name) const
{
    const auto found =
        std::find_if(m_tags.cbegin(), m_tags.cend(), [&](const auto& tag) { return tag->name() == name; });
    return found == m_tags.cend() ? 0 : found.key();
}

qint64 MemoryHost::addTag(const QString& name, int colorIndex, int fileCount)
{
    return addTags(QVector<MemoryTagSpec>{{name, colorIndex, fileCount}}).constFirst();
}

QVector<qint64> MemoryHost::addTags(const QVector<MemoryTagSpec>& tags)
{
    TagHash added;
    QVector<qint64> ids;
    added.reserve(tags.size());
    for (const MemoryTagSpec& spec : tags) {
        const qint64 id = m_nextTagId++;
        const auto tag = QSharedPointer<MemoryTag>::create(id, spec.name, spec.colorIndex, spec.fileCount);
        m_tags.insert(id, tag);
        added.insert(id, tag);
        ids.append(id);
    }
    group(AllTags)->join(added);
    group(Uncategorized)->join(added);
    return ids;
}

QVector<qint64> MemoryHost::addTags(const QStringList& names)
{
    QVector<MemoryTagSpec> specs;
    for (const QString& name : names)
        specs.append({name});
    return addTags(specs);
}

void MemoryHost::renameTag(qint64 tagId, const QString& name)
{
    if (const auto renamed = tag(tagId))
        renamed->setName(name);
}

void MemoryHost::setTagColor(qint64 tagId, int colorIndex)
{
    if (const auto colored = tag(tagId))
        colored->setColorIndex(colorIndex);
}

void MemoryHost::setFileCount(qint64 tagId, int fileCount)
{
    if (const auto counted = tag(tagId))
        counted->setFileCount(fileCount);
}

void MemoryHost::removeTags(const QVector<qint64>& tagIds)
{
    for (const qint64 id : tagIds) {
        m_userGroupCounts.remove(id);
        if (const auto removed = m_tags.take(id))
            removed->dropRecord();
    }
    const auto groups = manager()->groups;
    for (const auto& group : groups)
        group->leave(tagIds);
}

void MemoryHost::setFavorite(qint64 tagId, bool favorite)
{
    if (favorite)
        group(Favorites)->join(pick({tagId}));
    else
        group(Favorites)->leave({tagId});
}

QVector<qint64> MemoryHost::addGroups(const QStringList& names)
{
    QVector<qint64> ids;
    for (const QString& name : names) {
        ids.append(m_nextGroupId++);
        manager()->groups[ids.last()] = QSharedPointer<MemoryGroup>::create(ids.last(), name);
    }
    emit manager()->signalAddTagGroups(ids);
    return ids;
}

void MemoryHost::renameGroup(qint64 groupId, const QString& name)
{
    if (const auto renamed = group(groupId))
        renamed->setName(name);
}

void MemoryHost::removeGroups(const QVector<qint64>& groupIds)
{
    QVector<qint64> freed;
    for (const qint64 id : groupIds) {
        if (id < firstUserGroup)
            continue;
        const auto removed = manager()->groups.take(id);
        if (!removed)
            continue;
        removed->dropRecord();
        for (const qint64 tagId : removed->tagIds())
            --m_userGroupCounts[tagId];
        freed += removed->tagIds();
    }
    emit manager()->signalRemoveTagGroups(groupIds);
    updateUncategorized(freed);
}

void MemoryHost::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    const TagHash tags = pick(tagIds);
    for (const qint64 groupId : groupIds) {
        const auto joined = groupId < Favorites ? nullptr : group(groupId);
        if (!joined)
            continue;
        for (auto it = tags.keyBegin(); it != tags.keyEnd() && groupId >= firstUserGroup; ++it)
            m_userGroupCounts[*it] += joined->contains(*it) ? 0 : 1;
        joined->join(tags);
    }
    updateUncategorized(tagIds);
}

void MemoryHost::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    const TagHash tags = pick(tagIds);
    for (const qint64 groupId : groupIds) {
        const auto left = groupId < Favorites ? nullptr : group(groupId);
        if (!left)
            continue;
        for (auto it = tags.keyBegin(); it != tags.keyEnd() && groupId >= firstUserGroup; ++it)
            m_userGroupCounts[*it] -= left->contains(*it) ? 1 : 0;
        left->leave(tagIds);
    }
    updateUncategorized(tagIds);
}

TagHash MemoryHost::pick(const QVector<qint64>& tagIds) const
{
    TagHash tags;
    for (const qint64 id : tagIds) {
        if (const auto found = tag(id))
            tags.insert(id, found);
    }
    return tags;
}

void MemoryHost::updateUncategorized(const QVector<qint64>& tagIds)
{
    TagHash free = pick(tagIds);
    QVector<qint64> filed;
    for (const qint64 id : tagIds) {
        if (m_userGroupCounts.value(id) > 0 && free.remove(id) > 0)
            filed.append(id);
    }
    group(Uncategorized)->leave(filed);
    group(Uncategorized)->join(free);
}
