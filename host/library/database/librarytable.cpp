// SPDX-License-Identifier: MIT
#include "host/library/database/librarytable.h"

#include "host/library/database/librarystatement.h"

QString librarytable::id(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT value FROM library WHERE key = 'id'");
    return select.run().next() ? QString::fromUtf8(select.bytes(0)) : QString();
}
