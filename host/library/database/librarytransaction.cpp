// SPDX-License-Identifier: MIT
#include "host/library/database/librarytransaction.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"

LibraryTransaction::LibraryTransaction(LibraryDatabase& database, Kind kind, const MayWait& mayWait)
    : m_database(database)
{
    if (m_database.m_inTransaction) {
        Q_ASSERT(kind == Kind::Reading);
        m_open = false;
        return;
    }
    if (kind == Kind::Writing)
        m_database.beginWriting(mayWait);
    else
        LibraryStatement(m_database, "BEGIN").run();
    m_database.m_inTransaction = true;
}

LibraryTransaction::~LibraryTransaction()
{
    if (!m_open)
        return;
    m_database.m_inTransaction = false;
    try {
        m_database.execute(QStringLiteral("ROLLBACK"));
    } catch (const LibraryError&) {
        // SQLite has already rolled back by itself, as it does after the worse failures.
    }
}

void LibraryTransaction::commit()
{
    LibraryStatement(m_database, "COMMIT").run();
    m_database.m_inTransaction = false;
    m_open = false;
}
