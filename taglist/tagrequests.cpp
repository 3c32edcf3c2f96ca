// SPDX-License-Identifier: MIT
#include "taglist/tagrequests.h"

#include "plugin/state/requestresult.h"

#include <itagaction.h>
#include <itagmanagerdataprovider.h>

#include <QDebug>

namespace {

constexpr char favoriteFailed[] = "VLTagGroupListView::slotSetCommonTag failed. Message";
constexpr char deleteFailed[] = "VLTagGroupListView::slotDelTag failed. Message:";

}  // namespace

TagRequests::TagRequests(QSharedPointer<ITagAction> action)
    : m_action(std::move(action))
{
}

void TagRequests::createTag(const QString& name, std::function<void()> onSuccess) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView::slotAddTag tagName:" << name;
    const qint64 request = action->createTags({NewTagRecord{name, 0, 0}});
    followTagRequest(action.data(), request, "VLTagGroupListView::slotAddTag failed. Message:", std::move(onSuccess));
}

void TagRequests::addToFavorites(qint64 tag_id) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView::slotSetCommonTag set common tagId:" << tag_id;
    const qint64 request = action->addTagsToGroups({taggroupid::favorites}, {tag_id});
    followTagRequest(action.data(), request, favoriteFailed);
}

void TagRequests::removeFromFavorites(qint64 tag_id) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView::slotSetCommonTag cance common tagId:" << tag_id;
    const qint64 request = action->removeTagsFromGroups({taggroupid::favorites}, {tag_id});
    followTagRequest(action.data(), request, favoriteFailed);
}

void TagRequests::addToGroup(qint64 g_id, qint64 tag_id) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView add tag to group. tagId:" << tag_id << " gId:" << g_id;
    action->addTagsToGroups({g_id}, {tag_id});
}

void TagRequests::removeFromGroup(qint64 g_id, qint64 tag_id) const
{
    const auto action = m_action;
    if (!action)
        return;
    const qint64 request = action->removeTagsFromGroups({g_id}, {tag_id});
    followTagRequest(action.data(), request, deleteFailed);
}

void TagRequests::renameTag(qint64 tag_id, const QString& newName) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView::slotRenameTag. tagId:" << tag_id;
    const qint64 request = action->renameTag(tag_id, newName);
    followTagRequest(action.data(), request, "VLTagGroupListView::slotRenameTag failed. Message:");
}

void TagRequests::setTagColor(qint64 tag_id, int colorIndex) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView::slotSetTagColor tagId:" << tag_id;
    const qint64 request = action->setTagColor(tag_id, colorIndex);
    followTagRequest(action.data(), request, "VLTagGroupListView::slotSetTagColor failed. Message:");
}

void TagRequests::deleteTag(qint64 tag_id) const
{
    const auto action = m_action;
    if (!action)
        return;
    qInfo() << "VLTagGroupListView::slotDelTag tagId:" << tag_id;
    const qint64 request = action->deleteTags({tag_id});
    followTagRequest(action.data(), request, deleteFailed);
}
