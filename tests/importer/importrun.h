// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/importer.h"

#include <QMap>
#include <QStringList>

class Library;

/// One import from start to end, as a test wants to look at it.
struct ImportRun
{
    ImportSummary summary;
    QMap<QByteArray, QString> skipped;  ///< Reasons by path.
    int finishedCount = 0;

    /// Waits for the end.
    static ImportRun run(Library& library, const QByteArray& folder, const ReaderPool::Settings& settings = {});
};

/// The names of the tags of each file in the library, sorted, by path.
[[nodiscard]] QMap<QByteArray, QStringList> tagsByFile(const Library& library);
