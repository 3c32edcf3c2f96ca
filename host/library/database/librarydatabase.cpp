// SPDX-License-Identifier: MIT
#include "host/library/database/librarydatabase.h"

#include "host/library/database/libraryerror.h"

#include <QSqlError>
#include <QUuid>
#include <QVariant>

#include <string_view>

LibraryDatabase::LibraryDatabase(const QString& driver)
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_database(QSqlDatabase::addDatabase(driver, m_name))
{
}

LibraryDatabase::~LibraryDatabase()
{
    close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

void LibraryDatabase::close()
{
    m_prepared.clear();
    m_database.close();
}

void LibraryDatabase::guard()
{
    if (!m_inTransaction)
        repairFiles();
}

void LibraryDatabase::execute(const QString& sql)
{
    QSqlQuery query(m_database);
    check(query.exec(sql), query);
}

qint64 LibraryDatabase::number(const QString& sql)
{
    QSqlQuery query(m_database);
    check(query.exec(sql), query);
    return query.next() ? query.value(0).toLongLong() : 0;
}

QSqlQuery& LibraryDatabase::prepared(const char* sql)
{
    const auto known = m_prepared.find(std::string_view(sql));
    if (known != m_prepared.end())
        return known->second;
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    check(query.prepare(QString::fromLatin1(sql)), query);
    return m_prepared.emplace(sql, query).first->second;
}

void LibraryDatabase::check(bool succeeded, const QSqlQuery& query) const
{
    if (!succeeded)
        throw errorOf(query.lastError());
}
