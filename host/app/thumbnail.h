// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QMetaType>

class QIODevice;

/// A small picture of a file, or why there is none.
struct Thumbnail
{
    enum State
    {
        Pending,  ///< Not loaded yet.
        Loaded,
        Unreadable,  ///< No picture that can be decoded, or too large a one.
        Missing      ///< No such file, or not to be opened.
    };

    State state = Pending;
    QImage image;  ///< Upright, at most as large as asked for; null unless loaded.

    /// Decodes a picture so that it fits a square of \a pixels device pixels; never enlarges it. Turns it upright as
    /// the file says. Any thread; takes as long as decoding takes.
    [[nodiscard]] static Thumbnail read(QIODevice* device, int pixels);
};

Q_DECLARE_METATYPE(Thumbnail)
