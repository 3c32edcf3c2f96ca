// SPDX-License-Identifier: MIT
#include "host/library/database/librarytable.h"

#include "host/library/database/librarystatement.h"

#include <QUuid>

QString librarytable::id(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT value FROM library WHERE key = 'id'");
    return select.run().next() ? QString::fromUtf8(select.bytes(0)) : QString();
}

void librarytable::setNewId(LibraryDatabase& database)
{
    LibraryStatement(database, "INSERT INTO library VALUES ('id', ?)")
        .run(QUuid::createUuid().toString(QUuid::WithoutBraces));
}

QStringList librarytable::namesReplaced(LibraryDatabase& database)
{
    LibraryStatement select(database, "SELECT value FROM library WHERE key LIKE 'name replaced %' ORDER BY key");
    select.run();
    QStringList names;
    while (select.next())
        names.append(QString::fromUtf8(select.bytes(0)));
    return names;
}

void librarytable::setNamesReplaced(LibraryDatabase& database, const QStringList& names)
{
    LibraryStatement insert(database, "INSERT INTO library VALUES (?, ?)");
    for (int i = 0; i < names.size(); ++i)
        insert.run(QStringLiteral("name replaced %1").arg(i, 6, 10, QLatin1Char('0')), names.at(i));
}

void librarytable::forgetNamesReplaced(LibraryDatabase& database)
{
    LibraryStatement(database, "DELETE FROM library WHERE key LIKE 'name replaced %'").run();
}
