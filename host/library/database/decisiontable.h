// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

#include <optional>

class LibraryDatabase;

/// What a person decided about tags on files, beside the files' own keywords. All of it throws LibraryErrors and
/// belongs into a transaction of the caller.
namespace decisiontable {

enum class Sign
{
    Minus = -1,  ///< The file has not the tag, whatever its keywords say.
    Plus = 1     ///< The file has the tag without a keyword.
};

/// What was decided about one tag of one file.
struct Decision
{
    qint64 tagId = 0;
    Sign sign = Sign::Plus;
};

/// Whether there is a decision about any file.
[[nodiscard]] bool hasAny(LibraryDatabase& database);
[[nodiscard]] QVector<Decision> decisionsOf(LibraryDatabase& database, qint64 fileId);
[[nodiscard]] std::optional<Sign> find(LibraryDatabase& database, qint64 fileId, qint64 tagId);
void set(LibraryDatabase& database, qint64 fileId, qint64 tagId, Sign sign);
void remove(LibraryDatabase& database, qint64 fileId, qint64 tagId);

/// To be called after the keywords and the files of the tag \a from were given to the tag \a into: decides about \a
/// into so that exactly the files have it that had one of the two. What is decided about \a from stays as it is.
void merge(LibraryDatabase& database, qint64 from, qint64 into);

}  // namespace decisiontable
