// SPDX-License-Identifier: MIT
#include "host/library/memory/librarycategoryaction.h"

#include "host/library/memory/actionrequest.h"
#include "host/library/requests/categoryrequests.h"

LibraryCategoryAction::LibraryCategoryAction(RequestSender* sender)
    : m_sender(sender)
{
}

LibraryCategoryAction::~LibraryCategoryAction() = default;

qint64 LibraryCategoryAction::send(ChangeKind kind, LibraryRequestBody body)
{
    return actionrequest::send(m_sender.data(), this, &ITagGroupAction::signalTagGroupResult, kind, std::move(body));
}

qint64 LibraryCategoryAction::addTagGroup(const QString& name)
{
    return send(ChangeKind::CreateCategory, [=](LibraryRequest& request) { categoryrequests::create(request, name); });
}

qint64 LibraryCategoryAction::removeTagGroup(qint64 groupId)
{
    return send(ChangeKind::DeleteCategory,
                [=](LibraryRequest& request) { categoryrequests::remove(request, groupId); });
}

qint64 LibraryCategoryAction::renameTagGroup(qint64 groupId, const QString& newName)
{
    return send(ChangeKind::RenameCategory,
                [=](LibraryRequest& request) { categoryrequests::rename(request, groupId, newName); });
}
