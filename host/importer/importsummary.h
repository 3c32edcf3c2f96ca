// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <QMetaType>
#include <QString>

/// How an import ended.
struct ImportSummary
{
    QString error;  ///< Why it could not be carried through; empty otherwise. What was written until then stays.
    bool noSuchFolder = false;  ///< The error is that the folder does not exist.
    bool cancelled = false;     ///< Stopped by cancel(); what was written until then stays.
    LibraryTotals totals;       ///< What the library holds now, files of other folders included.
    int found = 0;              ///< Pictures in the folder.
    int added = 0;              ///< Files new in the library.
    int changed = 0;            ///< Files whose state or tags were written.
    int removed = 0;            ///< Missing files that were taken out of the library.
    int skipped = 0;            ///< Files and folders that could not be read and were not known to be so.
    int unreadable = 0;         ///< Files and folders that could not be read before either and have not changed since.
    /// Files that the library has of this folder and that are gone, while the folders around them are there. They stay
    /// in the library.
    int missing = 0;
    /// Files that the library has of this folder and whose own folder is empty or cannot be seen: a disk that is not
    /// connected, say.
    int away = 0;

    /// Makes this the summary of this import and \a later, one of another folder.
    void add(const ImportSummary& later);
};

Q_DECLARE_METATYPE(ImportSummary)
