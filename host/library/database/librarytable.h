// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class LibraryDatabase;

/// What a library knows of itself. Throws LibraryErrors.
namespace librarytable {

/// Unlike that of any other library; copies of one have the same.
[[nodiscard]] QString id(LibraryDatabase& database);
/// Gives a new library its id. To be called inside a transaction.
void setNewId(LibraryDatabase& database);

/// New names of tags and categories that a migration had to rename, until forgetNamesReplaced().
[[nodiscard]] QStringList namesReplaced(LibraryDatabase& database);
/// To be called inside a transaction, like the next one.
void setNamesReplaced(LibraryDatabase& database, const QStringList& names);
void forgetNamesReplaced(LibraryDatabase& database);

}  // namespace librarytable
