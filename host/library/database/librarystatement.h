// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVector>

class LibraryDatabase;
class QSqlQuery;

/// One use of a prepared statement: values are bound, never pasted, and the statement lets go of its locks when the use
/// ends. A statement must not be in use twice at a time. Every failure is thrown as a LibraryError.
class LibraryStatement
{
public:
    /// \a sql finds the prepared statement again, so it is one of few texts, never made of values.
    LibraryStatement(LibraryDatabase& database, const char* sql);
    ~LibraryStatement();

    /// Binds the values to the statement's question marks in order and runs it.
    template <typename... Values>
    LibraryStatement& run(const Values&... values)
    {
        int place = 0;
        (bind(place++, QVariant(values)), ...);
        execute();
        return *this;
    }

    /// The same with a list of values.
    LibraryStatement& runWith(const QVector<qint64>& values);

    /// Goes to the next row; false after the last one.
    [[nodiscard]] bool next();
    [[nodiscard]] qint64 integer(int column) const;
    [[nodiscard]] QByteArray bytes(int column) const;
    [[nodiscard]] bool isNull(int column) const;
    /// The first column of all rows that follow.
    [[nodiscard]] QVector<qint64> integers();
    /// A name from a column with the name's key and one with its spelling, which is null when it is the same.
    [[nodiscard]] QString name(int keyColumn, int spellingColumn) const;

    /// Rows that the statement inserted, changed or deleted.
    [[nodiscard]] int rowsChanged() const;
    [[nodiscard]] qint64 lastInsertId() const;

private:
    Q_DISABLE_COPY(LibraryStatement)

    void bind(int place, const QVariant& value);
    void execute();

    LibraryDatabase& m_database;
    QSqlQuery& m_query;
};
