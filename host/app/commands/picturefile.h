// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// A file of the library by its path in the file system's own bytes, which need not be valid text in any encoding.
namespace PictureFile {

/// The MIME type of the regular file at \a path when it is a picture both by its content and by its name, so that no
/// program on the desktop takes it for something to be run; else empty. May block on a slow disk.
[[nodiscard]] QString pictureType(const QByteArray& path);

/// The name for display, without the folder; bytes that are no UTF-8 become replacement characters.
[[nodiscard]] QString displayName(const QByteArray& path);

}  // namespace PictureFile
