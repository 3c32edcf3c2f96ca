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

    /// The host with its window against the bare SQL.
    QVector<Result> runLibrary() const;
    /// The longest pauses of the window; the baseline is the longest that is allowed.
    QVector<Result> runPauses() const;

    /// In the process that was started for it: the task that its arguments stand for, on a copy of the library that
    /// is removed afterwards.
    static bool measure(SideKind side, bool pauses, const QString& folder, int tags, Clock clock);

private:
    bool prepare() const;
    bool measureAll(const QVector<SideKind>& sides, const QString& option, Measurements* into) const;

    QString m_folder;
    int m_tags;
    int m_runs;
    Clock m_clock;
};

}  // namespace bench
