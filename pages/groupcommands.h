// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>
#include <QString>

class ITagAction;
class ITagGroupAction;

// The requests of the categories page. Each writes its log line, is sent to the host, and writes another line should
// the host refuse it. Without an action object nothing happens, not even a log line. A host may delete the page from
// inside a request, so the caller holds a pointer of its own to the action.

void requestNewGroup(const QSharedPointer<ITagGroupAction>& action, const QString& name);
void requestGroupName(const QSharedPointer<ITagGroupAction>& action, qint64 g_id, const QString& newName);
void requestGroupRemoval(const QSharedPointer<ITagGroupAction>& action, qint64 g_id);
void requestTagInGroup(const QSharedPointer<ITagAction>& action, qint64 g_id, qint64 t_id);
