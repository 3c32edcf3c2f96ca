// SPDX-License-Identifier: MIT
#pragma once

#include "bench/result.h"
#include "bench/side.h"
#include "bench/stopwatch.h"

#include <QString>
#include <QVector>

namespace bench {

class LibraryContent;
class Measurements;

/// Measures a large library, each time on a copy of its own and in a fresh process of this program. Problems are told
/// on the standard error, with empty results.
class LibraryRunner
{
public:
    /// Keeps its files in the existing \a folder, and takes those that it finds there from an earlier time.
    LibraryRunner(const QString& folder, int tags, int runs, Clock clock);

    /// The host, without and with its window, against the bare SQL.
    QVector<Result> runLibrary() const;
    /// The longest pauses of the window; the baseline is the longest that is allowed.
    QVector<Result> runPauses() const;

    /// In the process that was started for it: works on a copy of the library that is removed afterwards. \a part is
    /// one of those that partNames() lists.
    static bool measure(SideKind side, const QString& part, const QString& folder, int tags, Clock clock);
    static QString partNames();

private:
    /// One kind of process, and where its lines go.
    struct Process
    {
        SideKind side;
        QString part;
        Measurements* into;
    };

    bool prepare() const;
    bool measureAll(const QVector<Process>& processes) const;

    QString m_folder;
    int m_tags;
    int m_runs;
    Clock m_clock;
};

}  // namespace bench
