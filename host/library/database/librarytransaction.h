// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>

class LibraryDatabase;

/// A transaction that is rolled back unless it was committed.
class LibraryTransaction
{
public:
    enum class Kind
    {
        Reading,  ///< Sees one state of the library throughout. Inside another transaction it is a part of that one.
        Writing   ///< Takes the write lock at once.
    };
    /// Whether to go on waiting for a lock.
    using MayWait = std::function<bool()>;

    /// Waits for the lock while \a mayWait returns true; throws a LibraryError after that.
    LibraryTransaction(
        LibraryDatabase& database, Kind kind, const MayWait& mayWait = [] { return false; });
    ~LibraryTransaction();

    /// On the disk when it returns; throws a LibraryError when that failed.
    void commit();

private:
    Q_DISABLE_COPY(LibraryTransaction)

    LibraryDatabase& m_database;
    bool m_open = true;
};
