// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Makes the empty file \a path that its owner alone may read and write; SQLite gives the files beside it the same
/// rights. A file that is there is never opened: closing it would give up this process's locks on it, see HeldFile.
/// Returns 0 or the number of the error, EEXIST for a file that is there. Any thread.
[[nodiscard]] int createForOwner(const QString& path);
