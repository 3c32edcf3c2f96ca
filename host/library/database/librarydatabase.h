// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>

#include <functional>
#include <map>
#include <string>

class LibraryError;
class QSqlError;

/// One connection to a library. To be used and destroyed on the thread that made it. Every failure is thrown as a
/// LibraryError. What only one engine has is in the classes derived from it, one folder for each engine.
class LibraryDatabase
{
public:
    virtual ~LibraryDatabase();

    /// Runs one statement without values.
    void execute(const QString& sql);
    /// The first column of the first row; 0 without a row.
    [[nodiscard]] qint64 number(const QString& sql);
    /// The statement \a sql, prepared at its first use and kept. See LibraryStatement.
    [[nodiscard]] QSqlQuery& prepared(const char* sql);

    /// Takes the write lock at once, so that a transaction cannot fail half way because somebody else has it. While
    /// another program holds the lock, \a mayWait is asked several times a second.
    virtual void beginWriting(const std::function<bool()>& mayWait) = 0;
    /// A number that changes when another connection commits, and not with this connection's own commits.
    [[nodiscard]] virtual qint64 foreignVersion() = 0;
    /// Throws unless what this connection writes to is what others find under the library's name.
    virtual void requireInPlace() = 0;
    /// Repairs, as far as possible, what other programs did to files that the engine needs at hand. To be called before
    /// each use; does nothing inside a transaction. Costs microseconds.
    void guard();
    /// Whether the library itself was written to since acceptFile(), by this or another program, even bypassing
    /// the engine. What the connection remembers of it is dropped then. To be called outside of transactions.
    [[nodiscard]] virtual bool hasFileChanged() = 0;
    /// Accepts the file as it is now as the library that was opened.
    virtual void acceptFile() = 0;
    /// Brings what was committed from a log into the library itself, as far as nobody else is in the way. To be called
    /// now and then while nothing else is to be done.
    virtual void tidy() = 0;
    /// Whether nothing is left for tidy() to do, whoever did it.
    [[nodiscard]] virtual bool isTidy() const = 0;
    /// What the engine reported, put into words for a person.
    [[nodiscard]] virtual LibraryError errorOf(const QSqlError& error) const = 0;

protected:
    /// \a driver is one of Qt's database drivers.
    explicit LibraryDatabase(const QString& driver);

    /// See guard().
    virtual void repairFiles() = 0;

    [[nodiscard]] QSqlDatabase& connection() { return m_database; }
    /// To be called by the destructors of derived classes that hold what the connection needs.
    void close();

private:
    Q_DISABLE_COPY(LibraryDatabase)
    friend class LibraryTransaction;

    void check(bool succeeded, const QSqlQuery& query) const;

    QString m_name;  ///< Of the connection, unique in the process.
    QSqlDatabase m_database;
    std::map<std::string, QSqlQuery, std::less<>> m_prepared;  ///< By their SQL.
    bool m_inTransaction = false;
};
