// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"
#include "host/library/records/libraryresult.h"

#include <iresponseinfo.h>

/// The answer to one request, made from its result. Unchanging.
class LibraryResponse final : public IResponseInfo
{
public:
    LibraryResponse(ChangeKind kind, const LibraryResult& result);
    virtual ~LibraryResponse() = default;

    /// What was asked for.
    [[nodiscard]] ChangeKind kind() const { return m_kind; }
    /// A LibraryStatus.
    [[nodiscard]] int status() const override;
    [[nodiscard]] QString message() const override;
    void rejectedTags(QVector<QSharedPointer<const ITagInfo>>& out) const override;
    void rejectedGroups(QVector<QSharedPointer<const ITagGroupInfo>>& out) const override;
    void rejectedFiles(QVector<QSharedPointer<const QString>>& out) const override;

private:
    ChangeKind m_kind;
    LibraryStatus m_status;
    QString m_message;
    QVector<TagRow> m_tags;
    QVector<CategoryRow> m_categories;
};
