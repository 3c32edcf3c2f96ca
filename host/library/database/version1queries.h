// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QVector>

class LibraryDatabase;

/// What is asked while files of a library of version 1 are being explained by their keywords. "These files" have been
/// read again and have the keywords that version 1 saw. All of it throws LibraryErrors and reads many rows once; what
/// writes belongs into a transaction of the caller.
namespace version1queries {

/// A keyword that was met since the files began to be read again, and a tag that all of these files with the keyword
/// have.
struct Pair
{
    qint64 keywordId = 0;
    qint64 tagId = 0;
    bool isExact = false;  ///< None of the other files has the tag.
};

struct Unsettled
{
    qint64 id = 0;
    QString name;
    qint64 fileCount = 0;  ///< Among these files.
};

/// A keyword that leads to the tag of its name though none of these files with the keyword has the tag.
struct Guess
{
    qint64 keywordId = 0;
    qint64 tagId = 0;
};

[[nodiscard]] QVector<Guess> contradictedGuesses(LibraryDatabase& database);
[[nodiscard]] QVector<Unsettled> unsettledKeywords(LibraryDatabase& database);
[[nodiscard]] QVector<Pair> pairs(LibraryDatabase& database);
/// Those that a keyword is known to lead to.
[[nodiscard]] QVector<qint64> explainedTags(LibraryDatabase& database);
[[nodiscard]] bool hasFilesReadAgain(LibraryDatabase& database);
/// Gives the tags of the unsettled keywords that lead to one by now to all files that have those, and settles them;
/// these files get the tags of their other keywords, too. Decisions against a tag hold. Returns how many files each tag
/// has more.
[[nodiscard]] QHash<qint64, int> followSettledKeywords(LibraryDatabase& database);
/// Makes what no keyword explains of the tags of these files a decision for them.
void keepUnexplainedTags(LibraryDatabase& database);
/// From now on these files are like all others.
void forgetVersion1(LibraryDatabase& database);

}  // namespace version1queries
