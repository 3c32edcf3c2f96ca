// SPDX-License-Identifier: MIT
#include "tests/support/memoryproviders.h"

#include "tests/support/memoryrecords.h"

#include <algorithm>

MemoryTag::MemoryTag(qint64 id, const QString& name, int colorIndex, int fileCount)
    : m_info(QSharedPointer<MemoryTagInfo>::create(id, name, colorIndex))
    , m_fileCount(fileCount)
{
}

void MemoryTag::setName(const QString& name)
{
    if (m_info)
        m_info = QSharedPointer<MemoryTagInfo>::create(m_info->id(), name, m_info->colorIndex());
    emit signalUpdated();
}

void MemoryTag::setColorIndex(int colorIndex)
{
    if (m_info)
        m_info = QSharedPointer<MemoryTagInfo>::create(m_info->id(), m_info->name(), colorIndex);
    emit signalUpdated();
}

void MemoryTag::setFileCount(int fileCount)
{
    m_fileCount = fileCount;
    emit signalUpdated();
}

MemoryGroup::MemoryGroup(qint64 id, const QString& name)
    : m_id(id)
    , m_info(QSharedPointer<MemoryGroupInfo>::create(id, name))
    , m_name(name)
{
}

int MemoryGroup::tags(TagHash* out) const
{
    ++m_reads;
    *out = m_tags;
    return m_tags.size();
}

int MemoryGroup::tagsByIds(const QVector<qint64>& ids, TagHash* out) const
{
    for (const qint64 id : ids) {
        const auto found = m_tags.constFind(id);
        if (found != m_tags.cend())
            out->insert(id, *found);
    }
    return out->size();
}

QSharedPointer<ITagDataProvider> MemoryGroup::tagByName(const QString& name) const
{
    const auto found =
        std::find_if(m_tags.cbegin(), m_tags.cend(), [&](const auto& tag) { return tag->name() == name; });
    return found == m_tags.cend() ? nullptr : *found;
}

QVector<qint64> MemoryGroup::tagIds() const
{
    QVector<qint64> ids;
    ids.reserve(m_tags.size());
    for (auto it = m_tags.keyBegin(); it != m_tags.keyEnd(); ++it)
        ids.append(*it);
    return ids;
}

void MemoryGroup::join(const TagHash& tags)
{
    QVector<qint64> ids;
    for (auto it = tags.cbegin(); it != tags.cend(); ++it) {
        if (!m_tags.contains(it.key()))
            ids.append(it.key());
        m_tags.insert(it.key(), it.value());
    }
    if (ids.isEmpty())
        return;
    std::sort(ids.begin(), ids.end());
    emit signalAddTags(ids);
    emit signalUpdated();
}

void MemoryGroup::leave(const QVector<qint64>& tagIds)
{
    QVector<qint64> ids;
    for (const qint64 id : tagIds) {
        if (m_tags.remove(id) > 0)
            ids.append(id);
    }
    if (ids.isEmpty())
        return;
    emit signalRemoveTags(ids);
    emit signalUpdated();
}

void MemoryGroup::setName(const QString& name)
{
    m_name = name;
    m_info = QSharedPointer<MemoryGroupInfo>::create(m_id, name);
    emit signalUpdated();
}

QSharedPointer<ITagGroupDataProvider> MemoryManager::tagGroupByName(const QString& name) const
{
    const auto found =
        std::find_if(groups.cbegin(), groups.cend(), [&](const auto& group) { return group->groupName() == name; });
    return found == groups.cend() ? nullptr : *found;
}

int MemoryManager::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    std::copy(groups.upperBound(1), groups.cend(), std::back_inserter(out));
    return out.size();
}
