// SPDX-License-Identifier: MIT
#include "host/library/database/librarystatement.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/records/tagname.h"

#include <QSqlError>

LibraryStatement::LibraryStatement(LibraryDatabase& database, const char* sql)
    : m_query(database.prepared(sql))
{
}

LibraryStatement::~LibraryStatement()
{
    m_query.finish();
}

void LibraryStatement::bind(int place, const QVariant& value)
{
    m_query.bindValue(place, value);
}

void LibraryStatement::execute()
{
    if (!m_query.exec())
        throw LibraryError(m_query.lastError());
}

bool LibraryStatement::next()
{
    if (m_query.next())
        return true;
    if (m_query.lastError().isValid())
        throw LibraryError(m_query.lastError());
    return false;
}

qint64 LibraryStatement::integer(int column) const
{
    return m_query.value(column).toLongLong();
}

QByteArray LibraryStatement::bytes(int column) const
{
    return m_query.value(column).toByteArray();
}

QString LibraryStatement::name(int keyColumn, int spellingColumn) const
{
    const QVariant spelling = m_query.value(spellingColumn);
    return tagname::fromColumn(spelling.isNull() ? m_query.value(keyColumn) : spelling);
}

int LibraryStatement::rowsChanged() const
{
    return m_query.numRowsAffected();
}

qint64 LibraryStatement::lastInsertId() const
{
    return m_query.lastInsertId().toLongLong();
}
