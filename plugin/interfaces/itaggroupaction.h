// SPDX-License-Identifier: MIT
#pragma once

#include "iresponseinfo.h"
#include "vlhostglobal.h"

#include <QObject>
#include <QSharedPointer>

/// Asynchronous requests that change categories; they are answered as those of ITagAction are. GUI thread only.
class VLHOST_EXPORT ITagGroupAction : public QObject
{
    Q_OBJECT

public:
    explicit ITagGroupAction(QObject* parent = nullptr);
    ~ITagGroupAction() override;

    /// [0] Creates an empty category.
    virtual qint64 addTagGroup(const QString& name) = 0;
    /// [1] Deletes the category; its tags stay.
    virtual qint64 removeTagGroup(qint64 groupId) = 0;
    /// [2] Renames the category; the host decides which names it accepts.
    virtual qint64 renameTagGroup(qint64 groupId, const QString& newName) = 0;

Q_SIGNALS:
    /// The answer to the request with that id.
    void signalTagGroupResult(qint64 requestId, QSharedPointer<const IResponseInfo> response);
};
