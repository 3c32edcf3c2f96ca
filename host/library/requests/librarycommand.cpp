// SPDX-License-Identifier: MIT
#include "host/library/requests/librarycommand.h"

#include "host/library/requests/filerequests.h"
#include "host/library/requests/tagrequests.h"

LibraryCommand LibraryCommand::tagFiles(const FileTagging& tagging)
{
    return {ChangeKind::TagFiles, [=](LibraryRequest& request) { filerequests::tag(request, tagging); }};
}

LibraryCommand LibraryCommand::mergeTags(const QVector<qint64>& ids, qint64 into)
{
    return {ChangeKind::MergeTags, [=](LibraryRequest& request) { tagrequests::merge(request, ids, into); }};
}

LibraryCommand LibraryCommand::renameTag(qint64 id, const QString& name)
{
    return {ChangeKind::RenameTag, [=](LibraryRequest& request) { tagrequests::rename(request, id, name); }};
}
