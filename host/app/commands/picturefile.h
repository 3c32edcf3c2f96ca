// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Properties of a file that follow from its name. Paths are the file system's bytes, which need not be valid text in
/// any encoding. No file is read.
namespace PictureFile {

/// The MIME type of a picture of that name. Empty if the name may be that of another type of file, which the desktop
/// might execute.
[[nodiscard]] QString pictureType(const QByteArray& path);

/// The name for display, without the folder; bytes that are no UTF-8 become replacement characters.
[[nodiscard]] QString displayName(const QByteArray& path);

}  // namespace PictureFile
