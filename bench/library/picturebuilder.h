// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace bench {

class LibraryContent;

/// Fills the new folder \a path with as many small pictures as are imported, their keywords in them. False when a file
/// cannot be written.
bool buildPictures(const QString& path, const LibraryContent& content);

}  // namespace bench
