// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QUrl>

/// A file of the library by its path in the file system's own bytes, which need not be valid text in any encoding.
namespace PictureFile {

/// True when \a path names a regular file that is a picture both by its content and by its name, so that no program on
/// the desktop takes it for something to be run. May block on a slow disk.
[[nodiscard]] bool isPicture(const QByteArray& path);

/// The name for display, without the folder; bytes that are no UTF-8 become replacement characters.
[[nodiscard]] QString displayName(const QByteArray& path);

/// The address of the file, every byte kept.
[[nodiscard]] QUrl url(const QByteArray& path);

}  // namespace PictureFile
