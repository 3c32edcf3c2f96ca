// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

#include <functional>

class LibraryDatabase;
class SqliteDatabase;

/// The tables of a library in an SQLite file, and how they came to be.
namespace sqliteschema {

/// What marks a database file as a library of ours: "VLLB", in the field that SQLite keeps for it.
constexpr quint32 applicationId = 0x564c4c42;
/// The version that this program reads and writes.
constexpr int currentVersion = 2;

/// Leads from one version to the next, inside a transaction.
using Step = std::function<void(LibraryDatabase& database)>;

/// The statements that make the tables of the current version.
[[nodiscard]] const QVector<const char*>& tables();

/// Fills an empty file. Another program may have done so meanwhile. Throws a LibraryError.
void create(LibraryDatabase& database);
/// Takes the step from the version \a from to the next, in a transaction, so that it may be interrupted at any moment
/// and is taken the next time; not when another program took it meanwhile. Foreign keys are off while it runs and
/// checked before the commit, so that a step may build a table anew. Whether the step was taken here. Throws a
/// LibraryError.
bool takeStep(LibraryDatabase& database, int from, const Step& step);

[[nodiscard]] int versionOf(LibraryDatabase& database);
/// Throws unless the tables, indexes and whatever else is in the database are exactly those that this program makes: a
/// view in the place of a table may take for ever to read, and a trigger does what nobody asked for.
void requireOurTables(LibraryDatabase& database);

}  // namespace sqliteschema
