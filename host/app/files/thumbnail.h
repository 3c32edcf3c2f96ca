// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QMetaType>

/// A small picture of a file, or the reason why there is none.
struct Thumbnail
{
    enum State
    {
        Pending,  ///< Not loaded yet.
        Loaded,
        Unreadable,  ///< Cannot be decoded: no picture, too large, or its reader process failed.
        Missing,     ///< The file does not exist or cannot be opened.
        Unchanged    ///< Answers only: the thumbnail of the request's source is up to date.
    };
    /// The state of the file when it was read, to detect changes.
    struct Source
    {
        qint64 modified = -1;  ///< Nanoseconds since 1970-01-01 UTC; -1 when no file was read.
        qint64 size = -1;      ///< Bytes.
    };

    State state = Pending;
    QImage image;  ///< Upright, at most as large as asked for; null unless loaded.
    Source source = {};
};

Q_DECLARE_METATYPE(Thumbnail)
