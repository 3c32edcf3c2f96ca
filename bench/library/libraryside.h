// SPDX-License-Identifier: MIT
#pragma once

#include "bench/side.h"
#include "bench/stopwatch.h"

#include <QString>

#include <memory>

namespace bench {

class LibraryContent;
struct MeasuredCommand;

/// One of the two programs that work on a library file: the host with its window, or sqlite3.
///
/// Everything gives milliseconds, and throws std::runtime_error when it fails.
class LibrarySide
{
public:
    virtual ~LibrarySide();

    /// Reads the library and, where there is a window, shows it.
    virtual double open() = 0;
    /// From the request to its answer.
    virtual double carryOut(const MeasuredCommand& command) = 0;
    /// Writes files whose keywords are known already, and tells what came of it.
    virtual double import(const LibraryContent& content) = 0;
};

/// Files that go into one transaction, as in the host's own imports.
constexpr int filesOfBatch = 500;
/// Of a file that import() writes, relative to the folder.
QByteArray importedPath(int file);
/// The root of those files; it is nowhere on the disk.
QByteArray importedFolder();

}  // namespace bench
