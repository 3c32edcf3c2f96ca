// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/memoryrecords.h"

#include <ilibrarydataprovider.h>
#include <itagaction.h>
#include <itagdataprovider.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QHash>
#include <QMap>
#include <QSharedPointer>

#include <algorithm>

using TagHash = QHash<qint64, QSharedPointer<ITagDataProvider>>;

/// One tag. Setters report with signalUpdated.
class MemoryTag final : public ITagDataProvider
{
public:
    MemoryTag(qint64 id, const QString& name, int colorIndex, int fileCount)
        : m_info(QSharedPointer<MemoryTagInfo>::create(id, name, colorIndex))
        , m_fileCount(fileCount)
    {
    }

    int fileCount(int /*flag*/) const override { return m_fileCount; }
    QString name() const override { return m_info ? m_info->name() : QString(); }
    /// Null once the tag was removed.
    QSharedPointer<const ITagInfo> tagInfo() const override { return m_info; }

    void setName(const QString& name)
    {
        if (m_info)
            m_info = QSharedPointer<MemoryTagInfo>::create(m_info->id(), name, m_info->colorIndex());
        emit signalUpdated();
    }
    void setColorIndex(int colorIndex)
    {
        if (m_info)
            m_info = QSharedPointer<MemoryTagInfo>::create(m_info->id(), m_info->name(), colorIndex);
        emit signalUpdated();
    }
    void setFileCount(int fileCount)
    {
        m_fileCount = fileCount;
        emit signalUpdated();
    }
    /// The record becomes null, without a signal.
    void dropRecord() { m_info.reset(); }

private:
    QSharedPointer<const ITagInfo> m_info;
    int m_fileCount;
};

/// One category. What it holds changes in bulk: one signal for the tags, one for the count.
class MemoryGroup final : public ITagGroupDataProvider
{
public:
    MemoryGroup(qint64 id, const QString& name)
        : m_id(id)
        , m_info(QSharedPointer<MemoryGroupInfo>::create(id, name))
        , m_name(name)
    {
    }

    int tagCount(int /*flag*/) const override { return m_tags.size(); }
    QString groupName() const override { return m_name; }
    /// Null once the category was removed.
    QSharedPointer<const ITagGroupInfo> groupInfo() const override { return m_info; }
    qint64 groupId() const override { return m_id; }
    int tags(TagHash* out) const override
    {
        *out = m_tags;
        return m_tags.size();
    }
    int tagsByIds(const QVector<qint64>& ids, TagHash* out) const override
    {
        for (const qint64 id : ids) {
            const auto found = m_tags.constFind(id);
            if (found != m_tags.cend())
                out->insert(id, *found);
        }
        return out->size();
    }
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override
    {
        const auto found =
            std::find_if(m_tags.cbegin(), m_tags.cend(), [&](const auto& tag) { return tag->name() == name; });
        return found == m_tags.cend() ? nullptr : *found;
    }

    bool contains(qint64 tagId) const { return m_tags.contains(tagId); }
    QVector<qint64> tagIds() const
    {
        QVector<qint64> ids;
        ids.reserve(m_tags.size());
        for (auto it = m_tags.keyBegin(); it != m_tags.keyEnd(); ++it)
            ids.append(*it);
        return ids;
    }
    /// Tags that are held already are left out; nothing new sends nothing.
    void join(const TagHash& tags)
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
    /// Ids that are not held are left out; nothing gone sends nothing.
    void leave(const QVector<qint64>& tagIds)
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
    void setName(const QString& name)
    {
        m_name = name;
        m_info = QSharedPointer<MemoryGroupInfo>::create(m_id, name);
        emit signalUpdated();
    }
    void dropRecord() { m_info.reset(); }

private:
    qint64 m_id;
    QSharedPointer<const ITagGroupInfo> m_info;
    QString m_name;
    TagHash m_tags;
};

/// Every category; reserved ones are found by id, never listed.
class MemoryManager final : public ITagManagerDataProvider
{
public:
    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override { return groups.value(g_id); }
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override
    {
        const auto found =
            std::find_if(groups.cbegin(), groups.cend(), [&](const auto& group) { return group->groupName() == name; });
        return found == groups.cend() ? nullptr : *found;
    }
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override
    {
        std::copy(groups.upperBound(1), groups.cend(), std::back_inserter(out));
        return out.size();
    }

    QMap<qint64, QSharedPointer<MemoryGroup>> groups;
};

/// The library object that the plug-in is handed; every part of it may be null.
class MemoryLibrary final : public ILibraryDataProvider
{
public:
    QSharedPointer<ITagAction> tagAction() const override { return tagActionObject; }
    QSharedPointer<ITagGroupAction> tagGroupAction() const override { return groupActionObject; }
    QSharedPointer<ITagManagerDataProvider> tagManagerDataProvider() const override { return manager; }

    QSharedPointer<ITagAction> tagActionObject;
    QSharedPointer<ITagGroupAction> groupActionObject;
    QSharedPointer<MemoryManager> manager;
};
