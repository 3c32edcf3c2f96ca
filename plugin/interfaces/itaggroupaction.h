// SPDX-License-Identifier: MIT
#pragma once

#include "iresponseinfo.h"
#include "vlhostglobal.h"

#include <QObject>
#include <QSharedPointer>

/// Asynchronous requests that change categories; they are answered as those of ITagAction are.
class VLHOST_EXPORT ITagGroupAction : public QObject
{
    Q_OBJECT

public:
    explicit ITagGroupAction(QObject* parent = nullptr);
    ~ITagGroupAction() override;

    /// [0] Creates an empty category.
    virtual qint64 addTagGroup(const QString& name) = 0;
    /// [1] The category's tags stay.
    virtual qint64 removeTagGroup(qint64 groupId) = 0;
    /// [2]
    virtual qint64 renameTagGroup(qint64 groupId, const QString& newName) = 0;

Q_SIGNALS:
    void signalTagGroupResult(qint64 requestId, QSharedPointer<const IResponseInfo> response);
};
