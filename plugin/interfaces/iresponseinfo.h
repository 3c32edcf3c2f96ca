// SPDX-License-Identifier: MIT
#pragma once

#include "tagrecords.h"

#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QVector>

/// The host's answer to one request. A request succeeded when the status is 0 and nothing was rejected.
///
/// Made by the host, and shared by pointer with whoever hears the answer. GUI thread only.
class IResponseInfo
{
public:
    virtual void reserved0() {}
    virtual void reserved1() {}
    /// [2] 0 on success; any other number is the host's error code.
    virtual int status() const = 0;
    /// [3] Why the request failed, in words for a log; empty on success.
    virtual QString message() const = 0;
    /// [4] Fills \a out with the tags that the request was not carried out for.
    virtual void rejectedTags(QVector<QSharedPointer<const ITagInfo>>& out) const = 0;
    /// [5] Fills \a out with the categories that the request was not carried out for.
    virtual void rejectedGroups(QVector<QSharedPointer<const ITagGroupInfo>>& out) const = 0;
    virtual void reserved6() {}
    virtual void reserved7() {}
    /// [8] Fills \a out with the paths of the files that the request was not carried out for.
    virtual void rejectedFiles(QVector<QSharedPointer<const QString>>& out) const = 0;

protected:
    ~IResponseInfo() = default;
};

Q_DECLARE_METATYPE(QSharedPointer<const IResponseInfo>)
