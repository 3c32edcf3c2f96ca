// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <optional>

class LibraryDatabase;

/// The rows of categories and of the tags in them; those marked as deleted are left out. All of it throws
/// LibraryErrors; what writes belongs into a transaction of the caller.
namespace categorytable {

/// The favourites and the user categories, by id.
[[nodiscard]] QVector<CategoryRow> categories(LibraryDatabase& database);
/// Every link between a tag and a category, favourites included.
[[nodiscard]] QVector<TagLink> links(LibraryDatabase& database);
[[nodiscard]] std::optional<CategoryRow> categoryById(LibraryDatabase& database, qint64 id);
/// The id of the category with that name, compared by key; 0 without one.
[[nodiscard]] qint64 idByName(LibraryDatabase& database, const QString& name);
[[nodiscard]] bool exists(LibraryDatabase& database, qint64 id);

/// The ids of the categories that the tag is in, favourites included.
[[nodiscard]] QVector<qint64> categoriesOf(LibraryDatabase& database, qint64 tagId);

/// Adds a category whose name is not taken.
CategoryRow insertCategory(LibraryDatabase& database, const QString& name);
void updateName(LibraryDatabase& database, qint64 id, const QString& name);
/// Marks the category as deleted by the change \a changeId; its tags stay in it.
void markDeleted(LibraryDatabase& database, qint64 id, qint64 changeId);
/// Whether the tag was not in the category.
bool addTag(LibraryDatabase& database, const TagLink& link);
/// Whether the tag was in the category.
bool removeTag(LibraryDatabase& database, const TagLink& link);
/// Takes a tag that is being deleted out of the counts of its categories, or a restored one into them again.
void addToCountsOf(LibraryDatabase& database, qint64 tagId, int more);

}  // namespace categorytable
