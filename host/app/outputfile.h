// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Writes \a content to the file \a path, the bytes of a name in any encoding. A regular file is replaced atomically,
/// also through a symbolic link; a pipe or a device is written to and stays what it is. Returns the error in words for
/// the user; empty on success. A pipe without a reader is an error; the call does not wait for one.
[[nodiscard]] QString writeOutputFile(const QByteArray& path, const QByteArray& content);
