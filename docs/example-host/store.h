// SPDX-License-Identifier: MIT
#pragma once

#include "providers.h"

#include <QStringList>

namespace example {

/// A tag to be made.
struct NewTag
{
    QString name;
    int colorIndex = 0;
    int fileCount = 0;
};

/// The tags and categories, in memory. A real host keeps them in a database and reads from a copy of it.
///
/// What changes is emitted once all categories are up to date, since a window may read any category from inside the
/// signal of another: one signal for each category, however many tags there are. Each operation is linear in what it
/// changes. Unknown ids change nothing.
class TagStore
{
public:
    TagStore();

    Manager* manager() const { return m_manager.data(); }
    QSharedPointer<Manager> sharedManager() const { return m_manager; }
    /// Null for an unknown id.
    QSharedPointer<Group> group(qint64 groupId) const { return m_manager->groups.value(groupId); }
    /// Null for an unknown id.
    QSharedPointer<Tag> tag(qint64 tagId) const { return m_tags.value(tagId); }
    /// 0 when there is none.
    qint64 tagId(const QString& name) const;

    qint64 addTag(const QString& name, int colorIndex = 0, int fileCount = 0);
    /// Returns the ids, which count from 1 and are never used twice.
    QVector<qint64> addTags(const QVector<NewTag>& tags);
    QVector<qint64> addTags(const QStringList& names);
    void renameTag(qint64 tagId, const QString& name);
    void setTagColor(qint64 tagId, int colorIndex);
    void setFileCount(qint64 tagId, int fileCount);
    void removeTags(const QVector<qint64>& tagIds);

    qint64 addGroup(const QString& name) { return addGroups({name}).constFirst(); }
    QVector<qint64> addGroups(const QStringList& names);
    void renameGroup(qint64 groupId, const QString& name);
    void removeGroup(qint64 groupId) { removeGroups({groupId}); }
    /// The reserved ones stay.
    void removeGroups(const QVector<qint64>& groupIds);
    void addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds);
    void removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds);

private:
    void fileAnew(const QVector<qint64>& tagIds);
    void announce();

    const QSharedPointer<Manager> m_manager = QSharedPointer<Manager>::create();
    QHash<qint64, QSharedPointer<Tag>> m_tags;
    QHash<qint64, int> m_userGroupCounts;  ///< Of each tag, how many user categories hold it.
    qint64 m_lastTagId = 0;
    qint64 m_lastGroupId = taggroupid::firstUser - 1;
};

}  // namespace example
