// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class LibraryDatabase;

/// How libraries are opened: the one place above the database that knows which engine holds one.
namespace libraryopening {

/// What is known of a library that was opened or made.
struct Opened
{
    std::unique_ptr<LibraryDatabase> database;
    QString path;  ///< Absolute, without links.
    QString id;    ///< See librarytable::id().
};

/// Opens the library for writing, making it or bringing it to the current version first. Throws a LibraryError.
[[nodiscard]] Opened openOrCreate(const QString& path);
/// For the person: what was changed to open the library for the first time; each once. \a path is Opened::path.
[[nodiscard]] QStringList takeUpgradeNotices(const QString& path);
/// Another connection to a library that is open; \a path is Opened::path. Throws a LibraryError.
[[nodiscard]] std::unique_ptr<LibraryDatabase> connectForWriting(const QString& path);
/// Whether the library can be read as it is. Throws a LibraryError unless it is a library. Writes nothing.
[[nodiscard]] bool isCurrent(const QString& path);
/// Throws a LibraryError.
[[nodiscard]] std::unique_ptr<LibraryDatabase> openForReading(const QString& path);

}  // namespace libraryopening
