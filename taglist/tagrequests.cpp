// SPDX-License-Identifier: MIT
#include "taglist/tagrequests.h"

#include "plugin/requestresult.h"

#include <itagaction.h>

#include <QDebug>

namespace {

constexpr qint64 favoritesGroupId = 1;
constexpr char favoriteFailed[] = "VLTagGroupListView::slotSetCommonTag failed. Message";
constexpr char deleteFailed[] = "VLTagGroupListView::slotDelTag failed. Message:";

}  // namespace

TagRequests::TagRequests(QSharedPointer<ITagAction> action)
    : m_action(std::move(action))
{
}

void TagRequests::createTag(const QString& name, std::function<void()> onSuccess) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView::slotAddTag tagName:" << name;
    const qint64 request = m_action->createTags({NewTagRecord{name, 0, 0}});
    followTagRequest(m_action.data(), request, "VLTagGroupListView::slotAddTag failed. Message:", std::move(onSuccess));
}

void TagRequests::addToFavorites(qint64 tag_id) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView::slotSetCommonTag set common tagId:" << tag_id;
    followTagRequest(m_action.data(), m_action->addTagsToGroups({favoritesGroupId}, {tag_id}), favoriteFailed);
}

void TagRequests::removeFromFavorites(qint64 tag_id) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView::slotSetCommonTag cance common tagId:" << tag_id;
    followTagRequest(m_action.data(), m_action->removeTagsFromGroups({favoritesGroupId}, {tag_id}), favoriteFailed);
}

void TagRequests::addToGroup(qint64 g_id, qint64 tag_id) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView add tag to group. tagId:" << tag_id << " gId:" << g_id;
    m_action->addTagsToGroups({g_id}, {tag_id});
}

void TagRequests::removeFromGroup(qint64 g_id, qint64 tag_id) const
{
    if (!m_action)
        return;
    followTagRequest(m_action.data(), m_action->removeTagsFromGroups({g_id}, {tag_id}), deleteFailed);
}

void TagRequests::renameTag(qint64 tag_id, const QString& newName) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView::slotRenameTag. tagId:" << tag_id;
    followTagRequest(m_action.data(), m_action->renameTag(tag_id, newName),
                     "VLTagGroupListView::slotRenameTag failed. Message:");
}

void TagRequests::setTagColor(qint64 tag_id, int colorIndex) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView::slotSetTagColor tagId:" << tag_id;
    followTagRequest(m_action.data(), m_action->setTagColor(tag_id, colorIndex),
                     "VLTagGroupListView::slotSetTagColor failed. Message:");
}

void TagRequests::deleteTag(qint64 tag_id) const
{
    if (!m_action)
        return;
    qInfo() << "VLTagGroupListView::slotDelTag tagId:" << tag_id;
    followTagRequest(m_action.data(), m_action->deleteTags({tag_id}), deleteFailed);
}
