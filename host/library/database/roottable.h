// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

class LibraryDatabase;

/// The roots. All of it throws LibraryErrors; what writes belongs into a transaction of the caller.
namespace roottable {

/// By id.
[[nodiscard]] QVector<RootRow> roots(LibraryDatabase& database);
[[nodiscard]] bool exists(LibraryDatabase& database, qint64 id);
/// Returns its id.
qint64 insert(LibraryDatabase& database, const QString& name);
void addToFileCount(LibraryDatabase& database, qint64 id, int more);
/// Moves all files of the root \a id into the folder \a folder of the root \a into, and removes the root.
void adopt(LibraryDatabase& database, qint64 id, qint64 into, const QByteArray& folder);
/// Moves the files below the folder \a folder of the root \a id into the root \a into; those that stay keep the root.
void split(LibraryDatabase& database, qint64 id, const QByteArray& folder, qint64 into);
[[nodiscard]] qint64 fileCount(LibraryDatabase& database);

}  // namespace roottable
