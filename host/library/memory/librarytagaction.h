// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"
#include "host/library/requests/libraryrequest.h"

#include <itagaction.h>

#include <QPointer>

class RequestSender;

/// Requests that change tags. An object that outlives its library answers every request with a failure.
class LibraryTagAction final : public ITagAction
{
    Q_OBJECT

public:
    explicit LibraryTagAction(RequestSender* sender);
    ~LibraryTagAction() override;

    qint64 createTags(const QVector<NewTagRecord>& tags) override;
    qint64 renameTag(qint64 tagId, const QString& newName) override;
    qint64 setTagColor(qint64 tagId, int colorIndex) override;
    qint64 deleteTags(const QVector<qint64>& tagIds) override;
    qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override;
    qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override;

private:
    qint64 send(ChangeKind kind, LibraryRequestBody body);

    QPointer<RequestSender> m_sender;
};
