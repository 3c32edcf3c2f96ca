// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/filetable.h"
#include "host/library/query/filequery.h"
#include "host/library/records/libraryrecords.h"

class LibraryDatabase;

/// Questions about many files. All of it throws LibraryErrors.
namespace filequeries {

/// The ids of the files asked for, ordered by root and path.
[[nodiscard]] QVector<qint64> fileIds(LibraryDatabase& database, const FileQuery& query);
/// Visits every file with its tag ids, deleted tags left out, ordered by root and path, until \a visitor returns false.
void forEachFile(LibraryDatabase& database, const filetable::FileVisitor& visitor);
/// The tags of one file without those that are deleted, ascending.
[[nodiscard]] QVector<qint64> livingTagsOf(LibraryDatabase& database, qint64 fileId);
/// The living tags that at least one of the files has: those of most files first.
[[nodiscard]] QVector<TagShare> tagSharesOf(LibraryDatabase& database, const QVector<qint64>& fileIds);
/// The living tags that are in at least one of the categories, reserved ones included; some perhaps twice.
[[nodiscard]] QVector<qint64> tagIdsOfCategories(LibraryDatabase& database, const QVector<qint64>& categoryIds);
/// A list of ids as the one value that json_each() takes apart again, so that a list of any length is bound.
[[nodiscard]] QString jsonArray(const QVector<qint64>& ids);

}  // namespace filequeries
