// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <optional>

class LibraryDatabase;

/// Keywords and the tags that they lead to. All of it throws LibraryErrors; what writes belongs into a transaction of
/// the caller.
namespace keywordtable {

enum class State
{
    Mapped = 0,     ///< Leads to its tag; ignored while that is deleted.
    Ignored = 1,    ///< Leads nowhere.
    Undecided = 2,  ///< May lead to one of several tags that were renamed in version 1; leads nowhere until then.
    Unsettled = 3   ///< Met while files of version 1 are being read again; decided when that ends.
};

struct Keyword
{
    qint64 id = 0;
    State state = State::Mapped;
    qint64 tagId = 0;  ///< 0 unless mapped; may be that of a deleted tag.
};

/// Compared by key.
[[nodiscard]] std::optional<Keyword> find(LibraryDatabase& database, const QString& name);
/// Adds a keyword that is not known; \a tagId is 0 unless it is mapped. Returns its id.
qint64 insert(LibraryDatabase& database, const QString& name, State state, qint64 tagId);
void update(LibraryDatabase& database, qint64 id, State state, qint64 tagId);
/// Makes all keywords that lead to the tag \a from lead to the tag \a into.
void redirect(LibraryDatabase& database, qint64 from, qint64 into);

/// Those without a tag, or of a deleted one, that files have, by name.
[[nodiscard]] QVector<KeywordRow> ignored(LibraryDatabase& database);

}  // namespace keywordtable
