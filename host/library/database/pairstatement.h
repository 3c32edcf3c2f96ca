// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/librarydatabase.h"

#include <QPair>
#include <QVector>

/// A statement for many pairs of numbers, run for up to 50 of them at once: that takes half the time of a statement for
/// each. Throws LibraryErrors; to be used inside a transaction of the caller.
class PairStatement
{
public:
    /// The statement's text is \a before, a list of pairs as VALUES takes it, and \a after.
    PairStatement(LibraryDatabase& database, const char* before, const char* after = "");

    void run(const QVector<QPair<qint64, qint64>>& pairs);

private:
    [[nodiscard]] QByteArray textFor(int pairs) const;

    LibraryDatabase& m_database;
    const char* m_before;
    const char* m_after;
};
