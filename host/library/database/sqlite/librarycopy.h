// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class SqliteDatabase;

/// A copy of a library's file beside it, as it is at that moment: whole, checked and on the disk as soon as it has its
/// name.
class LibraryCopy
{
public:
    /// Copies \a database to the name \a path + \a suffix; never onto another file, but with a number then. Reads and
    /// writes the whole library. Throws a LibraryError.
    LibraryCopy(SqliteDatabase& database, const QString& path, const QString& suffix);

    [[nodiscard]] QString path() const { return m_path; }
    /// For when it turns out not to be needed.
    void remove() const;

private:
    QString m_path;
};
