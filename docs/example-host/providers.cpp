// SPDX-License-Identifier: MIT
#include "providers.h"

#include "records.h"

#include <algorithm>
#include <utility>

namespace example {

namespace {

QVector<qint64> ascending(const QSet<qint64>& ids)
{
    QVector<qint64> sorted(ids.begin(), ids.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

}  // namespace

Tag::Tag(qint64 id, const QString& name, int colorIndex, int fileCount)
    : m_record(QSharedPointer<TagRecord>::create(id, name, colorIndex))
    , m_fileCount(fileCount)
{
}

int Tag::fileCount(int) const
{
    return m_fileCount;
}

QString Tag::name() const
{
    return m_record ? m_record->name() : QString();
}

QSharedPointer<const ITagInfo> Tag::tagInfo() const
{
    return m_record;
}

void Tag::setRecord(const QString& name, int colorIndex)
{
    if (m_record)
        m_record = QSharedPointer<TagRecord>::create(m_record->id(), name, colorIndex);
    emit signalUpdated();
}

void Tag::setFileCount(int fileCount)
{
    m_fileCount = fileCount;
    emit signalUpdated();
}

void Tag::dropRecord()
{
    m_record.reset();
}

Group::Group(qint64 id, const QString& name)
    : m_id(id)
    , m_name(name)
    , m_record(QSharedPointer<GroupRecord>::create(id, name))
{
}

int Group::tagCount(int) const
{
    return m_tags.size();
}

QString Group::groupName() const
{
    return m_name;
}

QSharedPointer<const ITagGroupInfo> Group::groupInfo() const
{
    return m_record;
}

qint64 Group::groupId() const
{
    return m_id;
}

int Group::tags(TagsById* out) const
{
    *out = m_tags;
    return m_tags.size();
}

int Group::tagsByIds(const QVector<qint64>& ids, TagsById* out) const
{
    for (const qint64 id : ids) {
        if (const auto tag = m_tags.value(id))
            out->insert(id, tag);
    }
    return out->size();
}

QSharedPointer<ITagDataProvider> Group::tagByName(const QString& name) const
{
    const auto found =
        std::find_if(m_tags.cbegin(), m_tags.cend(), [&](const auto& tag) { return tag->name() == name; });
    return found == m_tags.cend() ? nullptr : *found;
}

bool Group::contains(qint64 tagId) const
{
    return m_tags.contains(tagId);
}

QVector<qint64> Group::tagIds() const
{
    QVector<qint64> ids(m_tags.size());
    std::copy(m_tags.keyBegin(), m_tags.keyEnd(), ids.begin());
    return ids;
}

void Group::setName(const QString& name)
{
    m_name = name;
    m_record = QSharedPointer<GroupRecord>::create(m_id, name);
    emit signalUpdated();
}

void Group::dropRecord()
{
    m_record.reset();
}

void Group::join(qint64 tagId, const QSharedPointer<ITagDataProvider>& tag)
{
    if (m_tags.contains(tagId))
        return;
    m_tags.insert(tagId, tag);
    if (!m_left.remove(tagId))
        m_joined.insert(tagId);
}

void Group::leave(qint64 tagId)
{
    if (m_tags.remove(tagId) > 0 && !m_joined.remove(tagId))
        m_left.insert(tagId);
}

void Group::announce()
{
    const QVector<qint64> left = ascending(std::exchange(m_left, {}));
    const QVector<qint64> joined = ascending(std::exchange(m_joined, {}));
    if (!left.isEmpty())
        emit signalRemoveTags(left);
    if (!joined.isEmpty())
        emit signalAddTags(joined);
    if (!left.isEmpty() || !joined.isEmpty())
        emit signalUpdated();
}

Manager::Manager()
{
    groups[taggroupid::allTags] = QSharedPointer<Group>::create(taggroupid::allTags, QStringLiteral("All Tags"));
    groups[taggroupid::fixed] = QSharedPointer<Group>::create(taggroupid::fixed, QStringLiteral("Uncategorized"));
    groups[taggroupid::favorites] = QSharedPointer<Group>::create(taggroupid::favorites, QStringLiteral("Favorites"));
}

QSharedPointer<ITagGroupDataProvider> Manager::tagGroup(qint64 g_id) const
{
    return groups.value(g_id);
}

QSharedPointer<ITagGroupDataProvider> Manager::tagGroupByName(const QString& name) const
{
    const auto found =
        std::find_if(groups.cbegin(), groups.cend(), [&](const auto& group) { return group->groupName() == name; });
    return found == groups.cend() ? nullptr : *found;
}

int Manager::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    std::copy(groups.lowerBound(taggroupid::firstUser), groups.cend(), std::back_inserter(out));
    return out.size();
}

}  // namespace example
