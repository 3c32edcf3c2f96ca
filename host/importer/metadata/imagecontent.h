// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;

/// Which pictures are decoded: by what a file holds, and only formats of a fixed list.
namespace imagecontent {

/// Bytes from the beginning of a file that tell its format.
constexpr int headSize = 1024;

/// The name by which QImageReader knows the format of a file that begins with \a head. Empty when it is none of those
/// that are decoded. The \a name of the file decides where the contents have no mark of their own.
[[nodiscard]] QByteArray format(const QByteArray& head, const QByteArray& name);

}  // namespace imagecontent
