// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <optional>

class LibraryDatabase;

/// The rows of files. All of it throws LibraryErrors.
namespace filetable {

/// Without its tag ids.
[[nodiscard]] std::optional<FileRow> fileByPath(LibraryDatabase& database, const QByteArray& path);
/// Without its tag ids.
[[nodiscard]] std::optional<FileRow> fileById(LibraryDatabase& database, qint64 id);
/// Ascending.
[[nodiscard]] QVector<qint64> tagsOfFile(LibraryDatabase& database, qint64 id);

}  // namespace filetable
