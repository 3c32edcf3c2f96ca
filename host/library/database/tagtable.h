// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <QHash>

#include <optional>

class LibraryDatabase;

/// The rows of tags; those marked as deleted are left out. All of it throws LibraryErrors; what writes belongs into a
/// transaction of the caller.
namespace tagtable {

/// Every tag, by id.
[[nodiscard]] QVector<TagRow> tags(LibraryDatabase& database);
[[nodiscard]] std::optional<TagRow> tagById(LibraryDatabase& database, qint64 id);
/// The id of the tag with that name, compared by key; 0 without one.
[[nodiscard]] qint64 idByName(LibraryDatabase& database, const QString& name);
[[nodiscard]] bool exists(LibraryDatabase& database, qint64 id);

/// Adds a tag whose name is not taken.
TagRow insertTag(LibraryDatabase& database, const QString& name, int colorIndex);
void updateName(LibraryDatabase& database, qint64 id, const QString& name);
void updateColor(LibraryDatabase& database, qint64 id, int colorIndex);
/// Marks the tag as deleted by the change \a changeId; its files, categories and keywords stay.
void markDeleted(LibraryDatabase& database, qint64 id, qint64 changeId);
/// Also for tags that are marked as deleted.
void addToFileCount(LibraryDatabase& database, qint64 id, int more);
/// The same for many tags, by id.
void addToFileCounts(LibraryDatabase& database, const QHash<qint64, int>& more);

/// Those that are marked as deleted.
[[nodiscard]] QVector<qint64> deletedIds(LibraryDatabase& database);
[[nodiscard]] qint64 count(LibraryDatabase& database);
/// Between files and tags.
[[nodiscard]] qint64 linkCount(LibraryDatabase& database);

}  // namespace tagtable
