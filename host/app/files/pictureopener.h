// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QString;

/// Opens pictures in the programs that the desktop has for them.
namespace PictureOpener {

/// The desktop file id of the program that opens pictures of \a mimeType: the person's choice, else the first that the
/// desktop recommends, but no web browser where there is another program, and none at all for drawings, whose scripts
/// it would run. Empty without one.
[[nodiscard]] QByteArray programFor(const QString& mimeType);

/// Starts that program with the file at \a path, which is a picture of \a mimeType. False when there is none or it
/// cannot be started.
bool open(const QByteArray& path, const QString& mimeType);

}  // namespace PictureOpener
