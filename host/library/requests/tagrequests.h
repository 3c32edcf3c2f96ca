// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/requests/libraryrequest.h"

#include <tagrecords.h>

/// The requests that change tags, each the body of one transaction.
///
/// A list with one id or name that cannot be carried out fails as a whole; the result names what was rejected. A
/// request that changes nothing (a tag in its category, a name kept) succeeds and writes nothing. Each costs a few
/// look-ups in indexes for each id; a name that is an ignored keyword's costs a reading of all files' keywords.
namespace tagrequests {

void create(LibraryRequest& request, const QVector<NewTagRecord>& tags);
void rename(LibraryRequest& request, qint64 id, const QString& name);
void recolor(LibraryRequest& request, qint64 id, int colorIndex);
/// Costs the same however many files the tags are on. Their keywords are ignored from now on.
void remove(LibraryRequest& request, const QVector<qint64>& ids);
/// Makes one tag of several: \a into gets the files, categories and keywords of the others, which are deleted. A file
/// that had any of them has \a into afterwards. Costs as much as these tags have files.
void merge(LibraryRequest& request, const QVector<qint64>& ids, qint64 into);
void addToCategories(LibraryRequest& request, const QVector<qint64>& categoryIds, const QVector<qint64>& tagIds);
void removeFromCategories(LibraryRequest& request, const QVector<qint64>& categoryIds, const QVector<qint64>& tagIds);

}  // namespace tagrequests
