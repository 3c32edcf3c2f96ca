// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QVector>

#include <memory>

struct CommandLine;
class Library;
class ReadOnlyLibrary;

/// The library that a command without a window works on. All of it throws CommandFailures.
namespace commandlibrary {

/// The file of the library that the command line names, itself or by a folder. It exists.
[[nodiscard]] QByteArray fileOf(const CommandLine& commandLine);
/// That library.
[[nodiscard]] std::unique_ptr<ReadOnlyLibrary> openForReading(const QByteArray& file);
[[nodiscard]] std::unique_ptr<Library> openForWriting(const QByteArray& file);

/// The file of the one library whose folders hold all of \a paths, or the one that the command line names.
[[nodiscard]] QByteArray fileHolding(const CommandLine& commandLine, const QVector<QByteArray>& paths);
/// The ids of the files at \a paths in the order given. Throws for a path that the library does not hold.
[[nodiscard]] QVector<qint64> fileIdsAt(ReadOnlyLibrary& reader, const QVector<QByteArray>& paths);

}  // namespace commandlibrary
