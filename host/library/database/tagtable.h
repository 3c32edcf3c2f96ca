// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <optional>

class LibraryDatabase;

/// The rows of tags and categories. All of it throws LibraryErrors; what writes belongs into a
/// transaction of the caller.
namespace tagtable {

/// Every tag with its number of files, by id. Counts all links once.
[[nodiscard]] QVector<TagRow> tags(LibraryDatabase& database);
/// The favourites and the user categories, by id.
[[nodiscard]] QVector<CategoryRow> categories(LibraryDatabase& database);
/// Every link between a tag and a category, favourites included.
[[nodiscard]] QVector<TagLink> tagLinks(LibraryDatabase& database);

/// The tag with that name, compared by key; without its file count.
[[nodiscard]] std::optional<TagRow> tagByName(LibraryDatabase& database, const QString& name);
[[nodiscard]] std::optional<TagRow> tagById(LibraryDatabase& database, qint64 id);
/// Adds a tag whose name is not taken.
TagRow insertTag(LibraryDatabase& database, const QString& name, int colorIndex);
void updateTagName(LibraryDatabase& database, qint64 id, const QString& name);

[[nodiscard]] std::optional<CategoryRow> categoryByName(LibraryDatabase& database, const QString& name);
[[nodiscard]] std::optional<CategoryRow> categoryById(LibraryDatabase& database, qint64 id);
/// Adds a category whose name is not taken.
CategoryRow insertCategory(LibraryDatabase& database, const QString& name);
void updateCategoryName(LibraryDatabase& database, qint64 id, const QString& name);

}  // namespace tagtable
