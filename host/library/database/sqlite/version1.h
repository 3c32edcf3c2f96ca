// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class LibraryDatabase;

/// Libraries of version 1: all paths were absolute, a tag was deleted with its links, and of a file's keywords only a
/// hash was kept.
namespace version1 {

/// What one does not find in the library afterwards.
struct Migrated
{
    QByteArray folder;  ///< The longest folder that holds all files: the root; empty without files.
    qint64 rootId = 0;  ///< Of that folder.
};

/// The step to version 2, inside a transaction. Leaves new names of tags and categories whose names had characters that
/// no name may have in librarytable::namesReplaced(). Throws a LibraryError.
[[nodiscard]] Migrated migrate(LibraryDatabase& database);

}  // namespace version1
