// SPDX-License-Identifier: MIT
#pragma once

#include <itagaction.h>
#include <itaggroupaction.h>

namespace example {

class TagStore;

/// What a person asks to be done with tags. Each request is carried out, and answered, from the event loop.
class TagRequests final : public ITagAction
{
public:
    explicit TagRequests(const QSharedPointer<TagStore>& store);

    qint64 createTags(const QVector<NewTagRecord>& tags) override;
    qint64 renameTag(qint64 tagId, const QString& newName) override;
    qint64 setTagColor(qint64 tagId, int colorIndex) override;
    qint64 deleteTags(const QVector<qint64>& tagIds) override;
    qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override;
    qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override;

private:
    template <class Work>
    qint64 answerLater(Work work);

    QSharedPointer<TagStore> m_store;
    qint64 m_lastRequest = 0;  ///< No two requests of one object may have the same id.
};

/// What a person asks to be done with categories.
class GroupRequests final : public ITagGroupAction
{
public:
    explicit GroupRequests(const QSharedPointer<TagStore>& store);

    qint64 addTagGroup(const QString& name) override;
    qint64 removeTagGroup(qint64 groupId) override;
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override;

private:
    template <class Work>
    qint64 answerLater(Work work);

    QSharedPointer<TagStore> m_store;
    qint64 m_lastRequest = 0;
};

}  // namespace example
