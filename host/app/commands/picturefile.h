// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// What the name of a file in the library says. Paths are the file system's own bytes, which need not be valid text in
/// any encoding. No file is read.
namespace PictureFile {

/// The MIME type of a picture of that name; empty when the name is, or may be, that of something else, which a program
/// on the desktop might run.
[[nodiscard]] QString pictureType(const QByteArray& path);

/// The name for display, without the folder; bytes that are no UTF-8 become replacement characters.
[[nodiscard]] QString displayName(const QByteArray& path);

}  // namespace PictureFile
