// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"
#include "host/library/requests/libraryrequest.h"

#include <itaggroupaction.h>

#include <QPointer>

class RequestSender;

/// Requests that change categories. An object that outlives its library answers every request with a failure.
class LibraryCategoryAction final : public ITagGroupAction
{
    Q_OBJECT

public:
    explicit LibraryCategoryAction(RequestSender* sender);
    ~LibraryCategoryAction() override;

    qint64 addTagGroup(const QString& name) override;
    qint64 removeTagGroup(qint64 groupId) override;
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override;

private:
    qint64 send(ChangeKind kind, LibraryRequestBody body);

    QPointer<RequestSender> m_sender;
};
