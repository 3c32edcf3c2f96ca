// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// \a path, in the file system's bytes, as an absolute one, without links as far as it exists, and without a slash at
/// its end: the form in which paths are stored and compared.
[[nodiscard]] QByteArray plainPath(const QByteArray& path);
