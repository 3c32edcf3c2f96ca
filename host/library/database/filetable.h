// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <functional>
#include <optional>

class LibraryDatabase;

/// The rows of files, with their keywords, decisions and tags. All of it throws LibraryErrors; what writes belongs into
/// a transaction of the caller. Rows are without tag ids, absolute path and presence.
namespace filetable {

/// Everything that is in the row of a file.
struct StoredFile
{
    FileRow row;
    QByteArray identity;
    std::optional<QByteArray> version1Hash;  ///< Of a file whose tags are still those of a library of version 1.
};

using FileVisitor = std::function<bool(FileRow& file)>;

/// Id of the file, id of the keyword.
using KeywordOfFile = QPair<qint64, qint64>;

/// 0 without such a file.
[[nodiscard]] qint64 idByPath(LibraryDatabase& database, qint64 rootId, const QByteArray& path);
[[nodiscard]] std::optional<StoredFile> fileById(LibraryDatabase& database, qint64 id);
[[nodiscard]] bool exists(LibraryDatabase& database, qint64 id);
/// Visits every file, ordered by root and path, until \a visitor returns false.
void forEach(LibraryDatabase& database, const FileVisitor& visitor);
/// The same for the files of a root in \a folder, at any depth; empty: all of the root. Throws when the index of paths
/// is out of order, which makes look-ups in it miss files.
void forEachBelow(LibraryDatabase& database, qint64 rootId, const QByteArray& folder, const FileVisitor& visitor);
/// Returns the new file's id.
qint64 insert(LibraryDatabase& database, qint64 rootId, const ImportedFile& file);
/// Everything but the keywords. \a keepsVersion1 leaves the mark of a file whose tags are still those of version 1.
void update(LibraryDatabase& database, qint64 id, const ImportedFile& file, bool keepsVersion1);
/// Takes it out of the library, with what is known of it.
void remove(LibraryDatabase& database, qint64 id);

/// Ascending; those of deleted tags, too.
[[nodiscard]] QVector<qint64> tagsOf(LibraryDatabase& database, qint64 id);
void addTag(LibraryDatabase& database, qint64 id, qint64 tagId);
/// Gives the files with ids from \a firstId, which have no tags yet, those that their keywords lead to.
void addTagsOfKeywords(LibraryDatabase& database, qint64 firstId);
void removeTag(LibraryDatabase& database, qint64 id, qint64 tagId);

/// Ids of the keywords as last read, ascending.
[[nodiscard]] QVector<qint64> keywordsOf(LibraryDatabase& database, qint64 id);
void addKeyword(LibraryDatabase& database, qint64 id, qint64 keywordId);
/// The same for many; fastest when sorted by file.
void addKeywords(LibraryDatabase& database, const QVector<KeywordOfFile>& keywords);
void removeKeyword(LibraryDatabase& database, qint64 id, qint64 keywordId);

/// Whether one of the file's keywords leads to the tag.
[[nodiscard]] bool hasKeywordFor(LibraryDatabase& database, qint64 id, qint64 tagId);

/// Gives the tag \a into to every file that has the tag \a from, which keeps its files. Returns how many files got it.
int copyTag(LibraryDatabase& database, qint64 from, qint64 into);

/// Whether the tags of any file are still those of a library of version 1.
[[nodiscard]] bool hasFilesOfVersion1(LibraryDatabase& database);

/// After a keyword was made to lead to a tag: gives the tag to every file that has the keyword, but for a decision
/// against it. Reads the keywords of all files. Returns how many files got it.
int followKeyword(LibraryDatabase& database, qint64 keywordId, qint64 tagId);
/// After a keyword was made to lead elsewhere: takes the tag from every file that has the keyword and neither another
/// one that leads to the tag nor a decision for it. Reads the keywords of all files. Returns how many files lost it.
int leaveKeyword(LibraryDatabase& database, qint64 keywordId, qint64 tagId);

}  // namespace filetable
