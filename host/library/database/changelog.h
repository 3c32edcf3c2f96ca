// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"
#include "host/library/records/librarychange.h"

#include <QUuid>

class LibraryDatabase;

/// The log of what transactions did. It is bounded: at most some 1,000 changes and 16 MB, and changes of more than 4 MB
/// are without their content. All of it throws LibraryErrors; what writes belongs into a transaction of the caller.
namespace changelog {

/// One entry as a reader of the log goes on from it.
struct Place
{
    qint64 id = 0;       ///< From 1, without gaps; 0 before the first one.
    QByteArray request;  ///< The entry's own number, so that it is told from one of the same id in another copy.
};

[[nodiscard]] Place last(LibraryDatabase& database);
/// Adds an entry behind the last one, \a before, and drops old ones. Returns its place.
Place append(LibraryDatabase& database, const Place& before, ChangeKind kind, const LibraryChange& change);
/// The changes that follow \a place, which goes to the last of them; nothing when the log does not tell all of them.
[[nodiscard]] std::optional<QVector<LibraryChange>> takeAfter(LibraryDatabase& database, Place& place);

}  // namespace changelog
