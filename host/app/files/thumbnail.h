// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QMetaType>

/// A small picture of a file, or why there is none.
struct Thumbnail
{
    enum State
    {
        Pending,  ///< Not loaded yet.
        Loaded,
        Unreadable,  ///< No picture that can be decoded, too large a one, or one that does harm.
        Missing,     ///< No such file, or not to be opened.
        Unchanged    ///< An answer only: the thumbnail that the request names is up to date.
    };
    /// The state of the file that was read, to tell whether it has changed.
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
