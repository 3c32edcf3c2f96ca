// SPDX-License-Identifier: MIT
#include "host/library/database/librarystatement.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/records/tagname.h"

#include <QSqlError>

LibraryStatement::LibraryStatement(LibraryDatabase& database, const char* sql)
    : m_database(database)
    , m_query(database.prepared(sql))
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

LibraryStatement& LibraryStatement::runWith(const QVector<qint64>& values)
{
    for (int place = 0; place < values.size(); ++place)
        bind(place, values.at(place));
    execute();
    return *this;
}

void LibraryStatement::execute()
{
    if (!m_query.exec())
        throw m_database.errorOf(m_query.lastError());
}

bool LibraryStatement::next()
{
    if (m_query.next())
        return true;
    if (m_query.lastError().isValid())
        throw m_database.errorOf(m_query.lastError());
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

bool LibraryStatement::isNull(int column) const
{
    return m_query.isNull(column);
}

QVector<qint64> LibraryStatement::integers()
{
    QVector<qint64> values;
    while (next())
        values.append(integer(0));
    return values;
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
