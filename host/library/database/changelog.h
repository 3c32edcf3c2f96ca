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
    QByteArray request;  ///< The entry's own number, which differs from that of the same id in another copy.
};

[[nodiscard]] Place last(LibraryDatabase& database);
/// Whether this is the log that \a place was read from: it holds the entry, or has dropped it and holds later ones.
[[nodiscard]] bool isLogOf(LibraryDatabase& database, const Place& place);
/// Adds an entry behind the last one, \a before, and drops old ones. Returns its place.
Place append(LibraryDatabase& database, const Place& before, ChangeKind kind, const LibraryChange& change);
/// The changes that follow \a place, which moves to the last of them. Nothing when the log does not hold all of them.
[[nodiscard]] std::optional<QVector<LibraryChange>> takeAfter(LibraryDatabase& database, Place& place);

}  // namespace changelog
