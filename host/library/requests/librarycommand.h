// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"
#include "host/library/records/filetagging.h"
#include "host/library/requests/libraryrequest.h"

/// What a person can have done to a library beside what the tag manager window asks for. A value: making one does
/// nothing, Library::carryOut() does it.
struct LibraryCommand
{
    ChangeKind kind;
    LibraryRequestBody body;

    /// See filerequests::tag().
    [[nodiscard]] static LibraryCommand tagFiles(const FileTagging& tagging);
    /// See tagrequests.
    [[nodiscard]] static LibraryCommand mergeTags(const QVector<qint64>& ids, qint64 into);
    [[nodiscard]] static LibraryCommand renameTag(qint64 id, const QString& name);
};
