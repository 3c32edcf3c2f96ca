// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

/// A tag as the database holds it.
struct TagRow
{
    qint64 id = 0;       ///< From 1, never used twice.
    QString name;        ///< As typed, without white space at its ends.
    int colorIndex = 0;  ///< Index into TagPalette.
    int fileCount = 0;
};

/// A category as the database holds it; the favourites are the one with the id 1.
struct CategoryRow
{
    qint64 id = 0;  ///< User categories: from 2, below 2^31, never used twice.
    QString name;   ///< As typed, without white space at its ends.
    int tagCount = 0;
};

/// A tag that is in a category.
struct TagLink
{
    qint64 categoryId = 0;
    qint64 tagId = 0;
};

inline bool operator==(const TagLink& a, const TagLink& b)
{
    return a.categoryId == b.categoryId && a.tagId == b.tagId;
}
inline uint qHash(const TagLink& link, uint seed = 0)
{
    return qHash(qMakePair(link.categoryId, link.tagId), seed);
}

/// What tells whether a file changed since it was imported.
struct FileState
{
    qint64 size = 0;      ///< Bytes.
    qint64 modified = 0;  ///< Nanoseconds since 1970-01-01 UTC.
    QByteArray sidecars;  ///< State of the sidecars in a form of the importer's choice; empty without one.
    QByteArray content;   ///< Hash of the content in a form of the importer's choice; empty when it was not taken.
};

inline bool operator==(const FileState& a, const FileState& b)
{
    return a.size == b.size && a.modified == b.modified && a.sidecars == b.sidecars && a.content == b.content;
}
inline bool operator!=(const FileState& a, const FileState& b)
{
    return !(a == b);
}

/// One file of an import. Paths are the bytes that the file system knows, whatever their encoding.
struct ImportedFile
{
    QByteArray path;  ///< Absolute.
    FileState state;
    /// The keywords found, in any order, duplicates allowed. Without a value the file keeps the tags that it has, for a
    /// file that was touched but says the same.
    std::optional<QVector<QString>> keywords;
};

/// A file as the database holds it.
struct FileRow
{
    qint64 id = 0;
    QByteArray path;  ///< Absolute, as the bytes that the file system knows.
    FileState state;
    QVector<qint64> tagIds;  ///< Ascending; filled only where it is said.
};

/// Numbers of the whole library.
struct LibraryTotals
{
    qint64 files = 0;
    qint64 tags = 0;
    qint64 links = 0;  ///< Between files and tags.
};
