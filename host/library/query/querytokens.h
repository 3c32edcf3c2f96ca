// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

/// The words of a query.
struct QueryToken
{
    enum class Kind
    {
        Condition,  ///< A word or quoted text, with or without a key.
        And,
        Or,
        Not,
        Open,
        Close,
        End
    };
    enum class Key
    {
        None,
        Category,
        Name,
        Folder,
        Date
    };

    Kind kind = Kind::End;
    Key key = Key::None;
    bool isQuoted = false;
    QString text;      ///< Of a condition; without quotation marks and key.
    int position = 0;  ///< In UTF-16 units.
};

/// What cannot be read, and where.
struct QueryError
{
    QString message;
    int position = 0;
};

/// Ends with a token of the kind End. Throws a QueryError for quotation marks that are not closed, for a key without a
/// value and for what follows a quotation mark without a blank.
[[nodiscard]] QVector<QueryToken> queryTokens(const QString& query);
