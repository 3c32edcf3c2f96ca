// SPDX-License-Identifier: MIT
#pragma once

#include <ilibrarydataprovider.h>
#include <itagaction.h>
#include <itagdataprovider.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QHash>
#include <QMap>
#include <QSharedPointer>

using TagHash = QHash<qint64, QSharedPointer<ITagDataProvider>>;

/// One tag. Setters report with signalUpdated.
class MemoryTag final : public ITagDataProvider
{
public:
    MemoryTag(qint64 id, const QString& name, int colorIndex, int fileCount);

    int fileCount(int /*flag*/) const override { return m_fileCount; }
    QString name() const override { return m_info ? m_info->name() : QString(); }
    /// Null once the tag was removed.
    QSharedPointer<const ITagInfo> tagInfo() const override { return m_info; }

    void setName(const QString& name);
    void setColorIndex(int colorIndex);
    void setFileCount(int fileCount);
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
    MemoryGroup(qint64 id, const QString& name);

    int tagCount(int /*flag*/) const override { return m_tags.size(); }
    QString groupName() const override { return m_name; }
    /// Null once the category was removed.
    QSharedPointer<const ITagGroupInfo> groupInfo() const override { return m_info; }
    qint64 groupId() const override { return m_id; }
    int tags(TagHash* out) const override;
    int tagsByIds(const QVector<qint64>& ids, TagHash* out) const override;
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override;

    bool contains(qint64 tagId) const { return m_tags.contains(tagId); }
    QVector<qint64> tagIds() const;
    /// Tags that are held already are left out; nothing new sends nothing.
    void join(const TagHash& tags);
    /// Ids that are not held are left out; nothing gone sends nothing.
    void leave(const QVector<qint64>& tagIds);
    void setName(const QString& name);
    void dropRecord() { m_info.reset(); }
    /// How often tags() was asked, to tell a reload from an update.
    int reads() const { return m_reads; }

private:
    qint64 m_id;
    QSharedPointer<const ITagGroupInfo> m_info;
    QString m_name;
    TagHash m_tags;
    mutable int m_reads = 0;
};

/// Every category; reserved ones are found by id, never listed.
class MemoryManager final : public ITagManagerDataProvider
{
public:
    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override { return groups.value(g_id); }
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override;
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override;

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
