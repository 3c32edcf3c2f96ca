// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QString;

/// Opens pictures in the programs that the desktop has for them.
namespace PictureOpener {

/// The desktop file id of the program that opens pictures of \a mimeType: the user's choice, else the first that the
/// desktop recommends. A web browser is the last choice, and never opens SVG drawings, whose scripts it would run.
/// Empty if there is none.
[[nodiscard]] QByteArray programFor(const QString& mimeType);

/// Starts that program with the file at \a path, a picture of \a mimeType. Returns false if there is none or it cannot
/// be started.
bool open(const QByteArray& path, const QString& mimeType);

}  // namespace PictureOpener
