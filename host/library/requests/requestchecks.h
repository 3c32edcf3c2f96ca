// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/libraryerror.h"

class LibraryDatabase;

/// What requests must not do, each check throwing the LibraryError that says so.
namespace requestchecks {

[[nodiscard]] LibraryError nameTaken(const QString& name);
/// Throws for a name that is empty or that has characters which no name may have.
void requireName(const QString& name);
void requireColor(int index);
void requireTags(LibraryDatabase& database, const QVector<qint64>& ids);
[[nodiscard]] TagRow requireTag(LibraryDatabase& database, qint64 id);
/// Favourites and user categories.
void requireFillableCategories(LibraryDatabase& database, const QVector<qint64>& ids);
[[nodiscard]] CategoryRow requireUserCategory(LibraryDatabase& database, qint64 id);
/// \a ownId is the category that is to be called so, 0 for a new one.
void requireFreeCategoryName(LibraryDatabase& database, const QString& name, qint64 ownId);

}  // namespace requestchecks
