// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/filetable.h"
#include "host/library/records/filequery.h"
#include "host/library/records/libraryrecords.h"

class LibraryDatabase;

/// Questions about many files. All of it throws LibraryErrors.
namespace filequeries {

/// The ids of the files asked for, ordered by root and path.
[[nodiscard]] QVector<qint64> fileIds(LibraryDatabase& database, const FileQuery& query);
/// Visits every file with its tag ids, deleted tags left out, ordered by root and path, until \a visitor returns false.
void forEachFile(LibraryDatabase& database, const filetable::FileVisitor& visitor);

}  // namespace filequeries
