// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class LibraryDatabase;

/// A transaction that is rolled back unless it was committed.
class LibraryTransaction
{
public:
    enum class Kind
    {
        Reading,  ///< Sees one state of the library throughout.
        Writing   ///< Takes the write lock at once, so that it cannot fail half way because somebody else has it.
    };

    /// Throws a LibraryError when the lock is not to be had in time.
    LibraryTransaction(LibraryDatabase& database, Kind kind);
    ~LibraryTransaction();

    /// On the disk when it returns; throws a LibraryError when that failed.
    void commit();

private:
    Q_DISABLE_COPY(LibraryTransaction)

    LibraryDatabase& m_database;
    bool m_open = true;
};
