// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/libraryschema.h"

/// Steps beyond the library's versions, of the kinds that later versions will need.
namespace testmigration {

/// From version 1, tags get a number of files that is kept, in a table built anew; then links get a number; then the
/// categories get a table built anew. Each says how many tags it found in the table "history".
[[nodiscard]] inline QVector<libraryschema::Step> steps()
{
    return {
        libraryschema::steps().first(),
        {"CREATE TABLE history (version, tags)",
         "CREATE TABLE new_tags (id INTEGER PRIMARY KEY AUTOINCREMENT, name NOT NULL UNIQUE, spelling,"
         " color INTEGER NOT NULL DEFAULT 0, files INTEGER NOT NULL)",
         "INSERT INTO new_tags SELECT id, name, spelling, color,"
         " (SELECT count(*) FROM file_tags WHERE tag_id = tags.id) FROM tags",
         "DROP TABLE tags", "ALTER TABLE new_tags RENAME TO tags", "INSERT INTO history SELECT 2, count(*) FROM tags"},
        {"ALTER TABLE file_tags ADD COLUMN number INTEGER", "UPDATE file_tags SET number = tag_id * file_id",
         "INSERT INTO history SELECT 3, count(*) FROM tags"},
        {"CREATE TABLE new_categories (id INTEGER PRIMARY KEY AUTOINCREMENT, name NOT NULL UNIQUE, spelling, note)",
         "INSERT INTO new_categories SELECT id, name, spelling, '' FROM categories", "DROP TABLE categories",
         "ALTER TABLE new_categories RENAME TO categories", "INSERT INTO history SELECT 4, count(*) FROM tags"},
    };
}

}  // namespace testmigration
