// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/heldfile.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <map>

/// One connection to a library's file. To be used and destroyed on the thread that made it.
///
/// Foreign keys are on, every commit reaches the disk before it returns, and a lock held by another program is waited
/// for up to 5 seconds. Every failure is thrown as a LibraryError.
class LibraryDatabase
{
public:
    enum class Access
    {
        Frozen,  ///< For a file that nobody changes meanwhile: without locks and without its log.
        ReadOnly,
        ReadWrite
    };

    /// Opens the existing file \a path, an absolute path.
    LibraryDatabase(const QString& path, Access access);
    ~LibraryDatabase();

    /// Runs one statement without values.
    void execute(const QString& sql);
    /// The first column of the first row, such as a pragma's value; 0 without a row.
    [[nodiscard]] int number(const QString& sql);

    /// The statement \a sql, a string literal, prepared at its first use and kept. See LibraryStatement.
    [[nodiscard]] QSqlQuery& prepared(const char* sql);

private:
    Q_DISABLE_COPY(LibraryDatabase)

    void configure(Access access);
    void close();

    HeldFile m_file;  ///< Given up after the connection.
    QString m_connection;
    QSqlDatabase m_database;
    std::map<const char*, QSqlQuery> m_prepared;
};
