// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QUrl>

class QFile;

/// A file of the library by its path in the file system's own bytes, which need not be valid text in any encoding.
namespace PictureFile {

/// What tells one state of a file from another.
struct Stamp
{
    qint64 modified = 0;  ///< Nanoseconds since 1970, UTC.
    qint64 size = 0;      ///< Bytes.
};

/// Opens \a file for reading when \a path names a regular file: no pipe, device or folder. May block on a slow disk.
bool open(const QByteArray& path, QFile* file, Stamp* stamp);

/// True when \a path names a regular file that is a picture both by its content and by its name, so that no program on
/// the desktop takes it for something to be run. May block on a slow disk.
[[nodiscard]] bool isPicture(const QByteArray& path);

/// The name for display, without the folder; bytes that are no UTF-8 become replacement characters.
[[nodiscard]] QString displayName(const QByteArray& path);

/// The address of the file, every byte kept.
[[nodiscard]] QUrl url(const QByteArray& path);

}  // namespace PictureFile
