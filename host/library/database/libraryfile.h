// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/librarydatabase.h"

#include <QString>

#include <memory>

/// The file of a library: created for its owner alone, and told from other files before SQLite may touch it.
namespace libraryfile {

/// Throws a LibraryError unless \a path, an absolute path, is a library that this program can read. Writes nothing.
void requireReadable(const QString& path);

/// A connection to the existing library \a path, an absolute path. Where the log files beside it cannot be made, as in
/// a folder that is read-only, the file is read as it is, and nothing can be written. Throws a LibraryError.
[[nodiscard]] std::unique_ptr<LibraryDatabase> connectTo(const QString& path, LibraryDatabase::Access access);

/// Opens the library for writing, creates it when there is no file or an empty one, and brings it to the current
/// version. Throws a LibraryError; a file that is no library of ours, or a newer one, is left as it is then.
[[nodiscard]] std::unique_ptr<LibraryDatabase> openOrCreate(const QString& path);

}  // namespace libraryfile
