// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The library file of a folder for which none was named: under the person's data directory (XDG_DATA_HOME), one for
/// each canonical path, never inside the folder. Creates the data directory, for the person's eyes only; not the file.
/// \a folder holds the path's bytes. Empty when the folder does not exist, or when the person has no data directory.
[[nodiscard]] QByteArray defaultLibraryPath(const QByteArray& folder);
