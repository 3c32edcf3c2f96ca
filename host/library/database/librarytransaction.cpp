// SPDX-License-Identifier: MIT
#include "host/library/database/librarytransaction.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"

LibraryTransaction::LibraryTransaction(LibraryDatabase& database, Kind kind)
    : m_database(database)
{
    m_database.execute(kind == Kind::Writing ? QStringLiteral("BEGIN IMMEDIATE") : QStringLiteral("BEGIN"));
}

LibraryTransaction::~LibraryTransaction()
{
    if (!m_open)
        return;
    try {
        m_database.execute(QStringLiteral("ROLLBACK"));
    } catch (const LibraryError&) {
        // SQLite has already rolled back by itself, as it does after the worse failures.
    }
}

void LibraryTransaction::commit()
{
    m_database.execute(QStringLiteral("COMMIT"));
    m_open = false;
}
