// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Writes \a content to the file \a path, the bytes of a name in any encoding. A regular file is replaced at once and
/// as a whole, where a link leads to it as well; a pipe or a device is written to and stays what it is. Returns why
/// that failed; empty on success. A pipe that nobody reads is a failure rather than waited for.
[[nodiscard]] QString writeOutputFile(const QByteArray& path, const QByteArray& content);
