// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/filequery.h"
#include "host/library/records/libraryrecords.h"

#include <functional>

class LibraryDatabase;

/// Questions about many files. All of it throws LibraryErrors.
namespace filequeries {

/// The ids of the files asked for, ordered by root and path.
[[nodiscard]] QVector<qint64> fileIds(LibraryDatabase& database, const FileQuery& query);
/// Visits every file with its tag ids, deleted tags left out, ordered by root and path, until \a visitor returns false.
void forEachFile(LibraryDatabase& database, const std::function<bool(FileRow& file)>& visitor);
/// See LibraryReader::pathsBelow().
[[nodiscard]] QVector<QByteArray> pathsBelow(LibraryDatabase& database, qint64 rootId, const QByteArray& folder,
                                             const QByteArray& after, int limit);

}  // namespace filequeries
