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

/// Of some files, how many have a tag.
struct TagShare
{
    qint64 tagId = 0;
    int files = 0;
};

/// A folder of pictures. Where it is mounted is known to each computer, not to the library.
struct RootRow
{
    qint64 id = 0;  ///< From 1, never used twice.
    QString name;   ///< The folder's own name, for people.
    qint64 fileCount = 0;
};

/// A keyword that leads to no tag that people see.
struct KeywordRow
{
    QString name;
    bool isUndecided = false;  ///< It may be one of several renamed tags; else it is ignored.
    qint64 fileCount = 0;
};

/// What shows whether a file changed since it was read.
struct FileState
{
    qint64 size = 0;      ///< Bytes.
    qint64 modified = 0;  ///< Nanoseconds since 1970-01-01 UTC.
    QByteArray sidecars;  ///< State of the sidecars in a form of the importer's choice; empty without one.
};

inline bool operator==(const FileState& a, const FileState& b)
{
    return a.size == b.size && a.modified == b.modified && a.sidecars == b.sidecars;
}
inline bool operator!=(const FileState& a, const FileState& b)
{
    return !(a == b);
}

/// What the library knows of a file that is met again.
struct KnownFile
{
    FileState state;
    int readerVersion = 0;  ///< Of the reader whose facts are stored; 0: a library of version 1 stored them.
};

/// One file of an import. Paths are the bytes that the file system knows, whatever their encoding.
struct ImportedFile
{
    QByteArray path;  ///< Relative to its root, without a slash at its ends.
    FileState state;
    int readerVersion = 1;      ///< From 1.
    QByteArray identity;        ///< What the file is recognised by after a move, in a form of the importer's choice.
    QVector<QString> keywords;  ///< In the order read, duplicates allowed.
    /// When the picture was taken: milliseconds since the beginning of 1970 on the camera's own clock.
    std::optional<qint64> taken = {};
};

/// A file as the database holds it.
struct FileRow
{
    qint64 id = 0;
    qint64 rootId = 0;
    QByteArray relativePath;  ///< Within the root, as the bytes that the file system knows.
    KnownFile known;
    QVector<qint64> tagIds;  ///< Ascending; filled only where it is said.
    QByteArray path;         ///< Absolute on this computer; relative to its root where that is not mounted.
    bool isAway = false;     ///< The root has no mount on this computer, or the folder is not there.
};

/// Numbers of the whole library.
struct LibraryTotals
{
    qint64 files = 0;
    qint64 tags = 0;
    qint64 links = 0;  ///< Between files and tags.
};
