// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

class LibraryDatabase;

/// Libraries of version 1: all paths were absolute, a tag was deleted with its links, and of a file's keywords only a
/// hash was kept.
namespace version1 {

/// What one does not find in the library afterwards.
struct Migrated
{
    QByteArray folder;          ///< The longest folder that holds all files: the root; empty without files.
    qint64 rootId = 0;          ///< Of that folder.
    QStringList namesReplaced;  ///< New names of tags and categories whose names had characters that no name may have.
};

/// The step to version 2, inside a transaction. Throws a LibraryError.
[[nodiscard]] Migrated migrate(LibraryDatabase& database);

}  // namespace version1
