// SPDX-License-Identifier: MIT
#pragma once

#include <ilibrarydataprovider.h>
#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QMap>
#include <QSet>

/// One tag. Whoever changes a field emits signalUpdated() afterwards.
class Tag final : public ITagDataProvider
{
public:
    Tag(qint64 id, const QString& name, int color);

    int fileCount(int flag) const override;
    QString name() const override;
    QSharedPointer<const ITagInfo> tagInfo() const override;

    const qint64 m_id;
    QString m_name;
    int m_color;
};

/// Every tag of a library, shared by its categories.
using TagTable = QMap<qint64, QSharedPointer<Tag>>;
using TagsById = QHash<qint64, QSharedPointer<ITagDataProvider>>;

/// One category: a name, and which of the library's tags it holds.
class Category final : public ITagGroupDataProvider
{
public:
    Category(qint64 id, const QString& name, const QSharedPointer<const TagTable>& tags);

    int tagCount(int flag) const override;
    QString groupName() const override;
    QSharedPointer<const ITagGroupInfo> groupInfo() const override;
    qint64 groupId() const override;
    int tags(TagsById* out) const override;
    int tagsByIds(const QVector<qint64>& ids, TagsById* out) const override;
    QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override;

    /// Emits what joined and what left since the last call.
    void announceChanges();

    const qint64 m_id;
    QString m_name;
    QSet<qint64> m_members;

private:
    const QSharedPointer<const TagTable> m_tags;
    QSet<qint64> m_announced;  ///< The members as last emitted.
};

/// The tags and categories, in memory. A real host keeps them in a database and reads from a copy of it.
class TagLibrary final : public ITagManagerDataProvider
{
public:
    TagLibrary();

    QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override;
    QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override;
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override;

    qint64 addTag(const QString& name, int color);
    qint64 addCategory(const QString& name);
    void removeCategory(qint64 id);
    /// To be called after tags came or went, or changed their category: brings every category up to date, and emits
    /// what changed once all of them are, since a window may read any category from inside the signal of another.
    void refresh();

    const QSharedPointer<TagTable> m_tags = QSharedPointer<TagTable>::create();
    QMap<qint64, QSharedPointer<Category>> m_categories;

private:
    qint64 m_lastId = taggroupid::firstUser;
};

/// The one object that the plug-in is given.
class Library final : public ILibraryDataProvider
{
public:
    explicit Library(const QSharedPointer<TagLibrary>& tags);

    QSharedPointer<ITagAction> tagAction() const override;
    QSharedPointer<ITagGroupAction> tagGroupAction() const override;
    QSharedPointer<ITagManagerDataProvider> tagManagerDataProvider() const override;

private:
    QSharedPointer<TagLibrary> m_tags;
    QSharedPointer<ITagAction> m_tagRequests;
    QSharedPointer<ITagGroupAction> m_categoryRequests;
};
