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
        Missing      ///< No such file, or not to be opened.
    };

    State state = Pending;
    QImage image;  ///< Upright, at most as large as asked for; null unless loaded.
};

Q_DECLARE_METATYPE(Thumbnail)
