// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/queryterm.h"

#include <QStringList>
#include <QVector>

class LibraryDatabase;

/// Finds files by a query. Throws LibraryErrors; belongs into a transaction of the caller, for one look at everything.
namespace filesearch {

/// The ids of the files for which \a term holds, ordered by root and path. Reads the names of all tags, the links of
/// those that the query names, and each file once.
[[nodiscard]] QVector<qint64> find(LibraryDatabase& database, const QueryTerm& term);

/// The names in \a term that no tag or category has, as typed.
[[nodiscard]] QStringList unknownNames(LibraryDatabase& database, const QueryTerm& term);

}  // namespace filesearch
