// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/sqlite/sqlitedatabase.h"
#include "host/library/database/sqlite/version1.h"

#include <memory>

/// The file of a library: created for its owner alone, and recognised before SQLite may touch it.
namespace sqlitelibrary {

/// Called inside the transaction of a migration, with the id of the library.
using MigrationObserver = std::function<void(const QString& libraryId, const version1::Migrated& migrated)>;

/// \a path as an absolute path without links, so that the log is found beside the file itself. Throws a LibraryError
/// for a link that leads nowhere.
[[nodiscard]] QString resolved(const QString& path);

/// Whether the library at \a path must be opened for writing once before it can be read: its creation was interrupted,
/// or it is of an earlier version. Throws a LibraryError unless it is a library that this program knows. Writes
/// nothing.
[[nodiscard]] bool needsOpening(const QString& path);

/// A connection to the existing library \a path, of the current version. Where the log files beside it cannot be made,
/// as in a folder that is read-only, the file is read as it is, and nothing can be written. Throws a LibraryError.
[[nodiscard]] std::unique_ptr<SqliteDatabase> connectTo(const QString& path, SqliteDatabase::Access access);

/// Opens the library for writing, creates it when there is no file or an empty one, and brings it to the current
/// version; a copy of the earlier version is beside it then. Throws a LibraryError; a file that is no library of ours,
/// or a newer one, is left as it is then.
[[nodiscard]] std::unique_ptr<SqliteDatabase> openOrCreate(const QString& path, const MigrationObserver& observer);

}  // namespace sqlitelibrary
