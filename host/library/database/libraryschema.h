// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class LibraryDatabase;

/// The tables of a library and their history.
namespace libraryschema {

/// What marks a database file as a library of ours: "VLLB", in the field that SQLite keeps for it.
constexpr quint32 ApplicationId = 0x564c4c42;

/// The statements that lead from one version to the next.
using Step = QVector<const char*>;

/// Step i leads from version i to version i + 1; version 0 is an empty file.
[[nodiscard]] const QVector<Step>& steps();
/// The version that this program reads and writes.
[[nodiscard]] int currentVersion();

/// Brings the database to the last version of \a steps, each step in a transaction of its own, so that it may be
/// interrupted at any moment and goes on the next time. Foreign keys are off meanwhile and checked before each commit,
/// so that a step may build a table anew. Throws a LibraryError, also when the database is newer.
void migrate(LibraryDatabase& database, const QVector<Step>& steps);

}  // namespace libraryschema
