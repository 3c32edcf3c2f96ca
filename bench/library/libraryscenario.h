// SPDX-License-Identifier: MIT
#pragma once

#include "bench/side.h"
#include "bench/stopwatch.h"

#include <QString>

namespace bench {

/// What one process is to measure, on files that are there already.
struct LibraryTask
{
    SideKind side = SideKind::Plugin;
    QString library;   ///< The file; changed.
    QString pictures;  ///< The folder of the pictures to be imported.
    int tags = 0;      ///< Of the library.
    bool hasWindow = false;
    Clock clock = Clock::Wall;
};

/// Opens the library, gives every command, and imports files. For each operation a line goes to the standard output:
/// name, milliseconds (bytes for memory), and how many tags and links the file holds afterwards. Throws when something
/// fails.
void measureLibrary(const LibraryTask& task);

/// Opens the library in the window and reports the longest time for which the window did nothing for a person, during
/// an import, a change by another program, and a walk through the thumbnails of the imported pictures.
void measurePauses(const LibraryTask& task);

}  // namespace bench
