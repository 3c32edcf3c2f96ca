// SPDX-License-Identifier: MIT
#pragma once

#include "iresponseinfo.h"
#include "tagrecords.h"
#include "vlhostglobal.h"

#include <QObject>
#include <QSharedPointer>
#include <QVector>

/// Asynchronous requests that change tags.
///
/// Every operation returns a request id at once; the answer arrives later as signalTagResult with that id, on the GUI
/// thread, exactly once. What changed is reported by the data providers' signals, not by the answer.
///
/// GUI thread only. Never emits the answer from inside the call. An operation that fails answers with a status or with
/// what was rejected.
class VLHOST_EXPORT ITagAction : public QObject
{
    Q_OBJECT

public:
    explicit ITagAction(QObject* parent = nullptr);
    ~ITagAction() override;

    /// [0] Creates a tag of each record.
    virtual qint64 createTags(const QVector<NewTagRecord>& tags) = 0;
    /// [1] Renames the tag; the host decides which names it accepts.
    virtual qint64 renameTag(qint64 tagId, const QString& newName) = 0;
    /// [2] Recolours the tag. \a colorIndex: an index into the host's palette.
    virtual qint64 setTagColor(qint64 tagId, int colorIndex) = 0;
    /// [3] Deletes the tags; their files stay.
    virtual qint64 deleteTags(const QVector<qint64>& tagIds) = 0;
    /// [4] Adds each of the tags to each of the categories. Category 1: makes them favourites.
    virtual qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) = 0;
    virtual void reserved5() {}
    virtual void reserved6() {}
    /// [7] Takes each of the tags out of each of the categories. Category 1: removes them from the favourites.
    virtual qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) = 0;

Q_SIGNALS:
    /// The answer to the request with that id.
    void signalTagResult(qint64 requestId, QSharedPointer<const IResponseInfo> response);
};
