// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <functional>
#include <optional>

class LibraryDatabase;

/// The rows of files, with their keywords, decisions and tags. All of it throws LibraryErrors; what writes belongs into
/// a transaction of the caller. Rows are without tag ids, absolute path and presence.
namespace filetable {

/// A file as an import meets it again.
struct StoredFile
{
    qint64 id = 0;
    KnownFile known;
    QByteArray identity;
    std::optional<QByteArray> version1Hash;  ///< Of a file whose tags are still those of a library of version 1.
};

/// A person's word about one tag of one file.
struct Decision
{
    qint64 tagId = 0;
    bool isPlus = false;
};

[[nodiscard]] std::optional<StoredFile> fileByPath(LibraryDatabase& database, qint64 rootId, const QByteArray& path);
[[nodiscard]] std::optional<FileRow> fileById(LibraryDatabase& database, qint64 id);
/// Visits every file, ordered by root and path, until \a visitor returns false.
void forEach(LibraryDatabase& database, const std::function<bool(FileRow& file)>& visitor);
/// Returns the new file's id.
qint64 insert(LibraryDatabase& database, qint64 rootId, const ImportedFile& file);
/// Everything but the keywords. \a keepsVersion1 leaves the mark of a file whose tags are still those of version 1.
void update(LibraryDatabase& database, qint64 id, const ImportedFile& file, bool keepsVersion1);
/// Takes it out of the library, with what is known of it.
void remove(LibraryDatabase& database, qint64 id);

/// Ascending; those of deleted tags, too.
[[nodiscard]] QVector<qint64> tagsOf(LibraryDatabase& database, qint64 id);
void addTag(LibraryDatabase& database, qint64 id, qint64 tagId);
void removeTag(LibraryDatabase& database, qint64 id, qint64 tagId);

/// Ids of the keywords as last read, ascending.
[[nodiscard]] QVector<qint64> keywordsOf(LibraryDatabase& database, qint64 id);
void addKeyword(LibraryDatabase& database, qint64 id, qint64 keywordId);
void removeKeyword(LibraryDatabase& database, qint64 id, qint64 keywordId);

/// Whether the tags of any file are still those of a library of version 1.
[[nodiscard]] bool hasFilesOfVersion1(LibraryDatabase& database);
/// Whether there is a decision about any file.
[[nodiscard]] bool hasDecisions(LibraryDatabase& database);
[[nodiscard]] QVector<Decision> decisionsOf(LibraryDatabase& database, qint64 id);
void removeDecision(LibraryDatabase& database, qint64 id, qint64 tagId);

/// After a keyword was made to lead to a tag: gives the tag to every file that has the keyword, but for a decision
/// against it. Reads the keywords of all files. Returns how many files got it.
int followKeyword(LibraryDatabase& database, qint64 keywordId, qint64 tagId);
/// After a keyword was made to lead elsewhere: takes the tag from every file that has the keyword and neither another
/// one that leads to the tag nor a decision for it. Reads the keywords of all files. Returns how many files lost it.
int leaveKeyword(LibraryDatabase& database, qint64 keywordId, qint64 tagId);

}  // namespace filetable
