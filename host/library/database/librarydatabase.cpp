// SPDX-License-Identifier: MIT
#include "host/library/database/librarydatabase.h"

#include "host/library/database/libraryerror.h"

#include <QSqlError>
#include <QUrl>
#include <QUuid>
#include <QVariant>

namespace {

constexpr int BusyTimeout = 5000;  // Milliseconds.

void check(bool succeeded, const QSqlQuery& query)
{
    if (!succeeded)
        throw LibraryError(query.lastError());
}

/// https://www.sqlite.org/uri.html
QString frozenUri(const QString& path)
{
    return QStringLiteral("file://%1?immutable=1").arg(QString::fromLatin1(QUrl::toPercentEncoding(path, "/")));
}

}  // namespace

LibraryDatabase::LibraryDatabase(const QString& path, Access access)
    : m_file(path)
    , m_connection(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection))
{
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(BusyTimeout);
    if (access != Access::ReadWrite)
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    if (access == Access::Frozen)
        options += QStringLiteral(";QSQLITE_OPEN_URI");
    m_database.setConnectOptions(options);
    m_database.setDatabaseName(access == Access::Frozen ? frozenUri(path) : path);
    try {
        configure(access);
    } catch (const LibraryError&) {
        close();
        throw;
    }
}

LibraryDatabase::~LibraryDatabase()
{
    close();
}

void LibraryDatabase::configure(Access access)
{
    if (!m_database.open())
        throw LibraryError(m_database.lastError());
    execute(QStringLiteral("PRAGMA trusted_schema = OFF"));
    execute(QStringLiteral("PRAGMA temp_store = MEMORY"));
    if (access != Access::ReadWrite)
        return;
    execute(QStringLiteral("PRAGMA foreign_keys = ON"));
    execute(QStringLiteral("PRAGMA synchronous = FULL"));
}

void LibraryDatabase::close()
{
    m_prepared.clear();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

void LibraryDatabase::execute(const QString& sql)
{
    QSqlQuery query(m_database);
    check(query.exec(sql), query);
}

int LibraryDatabase::number(const QString& sql)
{
    QSqlQuery query(m_database);
    check(query.exec(sql), query);
    return query.next() ? query.value(0).toInt() : 0;
}

QSqlQuery& LibraryDatabase::prepared(const char* sql)
{
    const auto known = m_prepared.find(sql);
    if (known != m_prepared.end())
        return known->second;
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    check(query.prepare(QString::fromLatin1(sql)), query);
    return m_prepared.emplace(sql, query).first->second;
}
