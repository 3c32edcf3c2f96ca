// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace bench {

class LibraryContent;

/// Writes a library file at \a path, where there is none yet. Throws a LibraryError.
void buildLibrary(const QString& path, const LibraryContent& content);

}  // namespace bench
