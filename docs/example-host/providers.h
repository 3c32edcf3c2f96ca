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
#include <QSet>
#include <QSharedPointer>

namespace example {

using TagsById = QHash<qint64, QSharedPointer<ITagDataProvider>>;

/// One tag. Each setter emits signalUpdated().
class Tag final : public ITagDataProvider
{
public:
    Tag(qint64 id, const QString& name, int colorIndex, int fileCount);

    int fileCount(int flag) const override;
    QString name() const override;
    /// Null once the tag was deleted.
    QSharedPointer<const ITagInfo> tagInfo() const override;

    void setRecord(const QString& name, int colorIndex);
    void setFileCount(int fileCount);
    /// The record becomes null, without a signal.
    void dropRecord();

private:
    QSharedPointer<const ITagInfo> m_record;
    int m_fileCount;
};

/// One category: a name, and the tags that it holds.
class Group final : public ITagGroupDataProvider
{
public:
    Group(qint64 id, const QString& name);

    int tagCount(int flag) const override;
    QString groupName() const override;
    /// Null once the category was removed.
    QSharedPointer<const ITagGroupInfo> groupInfo() const override;
    qint64 groupId() const override;
    int tags(TagsById* out) const override;
    int tagsByIds(const QVector<qint64>& ids, TagsById* out) const override;
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override;

    bool contains(qint64 tagId) const;
    QVector<qint64> tagIds() const;
    /// Emits signalUpdated().
    void setName(const QString& name);
    void dropRecord();
    /// Nothing is emitted before announce(). A tag that is held already is left out.
    void join(qint64 tagId, const QSharedPointer<ITagDataProvider>& tag);
    void leave(qint64 tagId);
    /// Emits which tags joined and left since the last call: one signal each, however many they are.
    void announce();

private:
    const qint64 m_id;
    QString m_name;
    QSharedPointer<const ITagGroupInfo> m_record;
    TagsById m_tags;
    QSet<qint64> m_joined;
    QSet<qint64> m_left;
};

/// Every category. The reserved ones are found by id and never listed.
class Manager final : public ITagManagerDataProvider
{
public:
    Manager();

    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override;
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override;
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override;

    QMap<qint64, QSharedPointer<Group>> groups;
};

/// The one object that the plug-in is given. Each part may be null: what needs it then does nothing.
class Library final : public ILibraryDataProvider
{
public:
    QSharedPointer<ITagAction> tagAction() const override { return tagRequests; }
    QSharedPointer<ITagGroupAction> tagGroupAction() const override { return groupRequests; }
    QSharedPointer<ITagManagerDataProvider> tagManagerDataProvider() const override { return manager; }

    QSharedPointer<ITagAction> tagRequests;
    QSharedPointer<ITagGroupAction> groupRequests;
    QSharedPointer<Manager> manager;
};

}  // namespace example
