// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

class LibraryDatabase;

/// The file of a library: created for its owner alone, and told from other files before SQLite may touch it.
namespace libraryfile {

/// Throws a LibraryError unless \a path, an absolute path, is a library that this program can read. Writes nothing.
void requireReadable(const QString& path);

/// Opens the library for writing, creates it when there is no file or an empty one, and brings it to the current
/// version. Throws a LibraryError; a file that is no library of ours, or a newer one, is left as it is then.
[[nodiscard]] std::unique_ptr<LibraryDatabase> openOrCreate(const QString& path);

}  // namespace libraryfile
