// SPDX-License-Identifier: MIT
#include "host/library/memory/librarytagaction.h"

#include "host/library/memory/actionrequest.h"
#include "host/library/requests/tagrequests.h"

LibraryTagAction::LibraryTagAction(RequestSender* sender)
    : m_sender(sender)
{
}

LibraryTagAction::~LibraryTagAction() = default;

qint64 LibraryTagAction::send(ChangeKind kind, LibraryRequestBody body)
{
    return actionrequest::send(m_sender.data(), this, &ITagAction::signalTagResult, kind, std::move(body));
}

qint64 LibraryTagAction::createTags(const QVector<NewTagRecord>& tags)
{
    return send(ChangeKind::CreateTags, [=](LibraryRequest& request) { tagrequests::create(request, tags); });
}

qint64 LibraryTagAction::renameTag(qint64 tagId, const QString& newName)
{
    return send(ChangeKind::RenameTag, [=](LibraryRequest& request) { tagrequests::rename(request, tagId, newName); });
}

qint64 LibraryTagAction::setTagColor(qint64 tagId, int colorIndex)
{
    return send(ChangeKind::RecolorTag,
                [=](LibraryRequest& request) { tagrequests::recolor(request, tagId, colorIndex); });
}

qint64 LibraryTagAction::deleteTags(const QVector<qint64>& tagIds)
{
    return send(ChangeKind::DeleteTags, [=](LibraryRequest& request) { tagrequests::remove(request, tagIds); });
}

qint64 LibraryTagAction::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return send(ChangeKind::AddToCategories,
                [=](LibraryRequest& request) { tagrequests::addToCategories(request, groupIds, tagIds); });
}

qint64 LibraryTagAction::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return send(ChangeKind::RemoveFromCategories,
                [=](LibraryRequest& request) { tagrequests::removeFromCategories(request, groupIds, tagIds); });
}
