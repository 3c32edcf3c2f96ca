// SPDX-License-Identifier: MIT
#include "pages/groupcommands.h"

#include "plugin/state/requestresult.h"

#include <itagaction.h>
#include <itaggroupaction.h>

#include <QDebug>

void requestNewGroup(const QSharedPointer<ITagGroupAction>& action, const QString& name)
{
    if (!action)
        return;
    qInfo() << "VLGroupTagWidget::slotAddGroup name:" << name;
    followTagGroupRequest(action.data(), action->addTagGroup(name), "VLGroupTagWidget::slotAddGroup failed. Message:");
}

void requestGroupName(const QSharedPointer<ITagGroupAction>& action, qint64 g_id, const QString& newName)
{
    if (!action)
        return;
    qInfo() << "VLGroupTagWidget::slotRenameGroup gId:" << g_id << " newName:" << newName;
    followTagGroupRequest(action.data(), action->renameTagGroup(g_id, newName),
                          "VLGroupTagWidget::slotRenameGroup failed. Message:");
}

void requestGroupRemoval(const QSharedPointer<ITagGroupAction>& action, qint64 g_id)
{
    if (!action)
        return;
    qInfo() << "VLGroupTagWidget::slotDelGroup gId:" << g_id;
    followTagGroupRequest(action.data(), action->removeTagGroup(g_id),
                          "VLGroupTagWidget::slotDelGroup failed. Message:");
}

void requestTagInGroup(const QSharedPointer<ITagAction>& action, qint64 g_id, qint64 t_id)
{
    if (!action)
        return;
    qInfo() << "VLGroupTagWidget::slotAddGroupTag tId:" << t_id << " gId:" << g_id;
    followTagRequest(action.data(), action->addTagsToGroups({g_id}, {t_id}),
                     "VLGroupTagWidget::slotAddGroupTag failed. Message:");
}
