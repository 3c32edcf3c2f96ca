// SPDX-License-Identifier: MIT
#pragma once

#include "bench/scenario.h"

#include <QHash>
#include <QString>
#include <QVector>

namespace bench {

/// What one operation cost on both sides, medians over the runs.
struct Result
{
    QString operation;
    int n = 0;
    double plugin = 0;    ///< Milliseconds; bytes per further tag for memory.
    double baseline = 0;  ///< The same for the baseline.

    [[nodiscard]] double ratio() const { return baseline > 0 ? plugin / baseline : 0; }
};

/// Measures both sides in turn, each time in a fresh process of this program.
class Runner
{
public:
    Runner(int runs, Clock clock, QString operation);

    /// \a names at this size, in the order in which the operations were done. Empty when a process failed or both sides
    /// did not list the same number of tags, which is told on the standard error.
    QVector<Result> run(Names names, int n) const;

    static QStringList childArguments(const Task& task);

private:
    using Values = QHash<QString, QVector<double>>;
    struct Measurements
    {
        QStringList operations;  ///< In their order.
        QHash<QString, int> shownTags;
        Values plugin;
        Values baseline;
    };

    bool measureOnce(const Task& task, Measurements* into) const;
    bool keepLine(const QByteArray& line, const Task& task, Measurements* into) const;
    bool measureAll(Names names, int n, const QString& operation, Measurements* into) const;

    int m_runs;
    Clock m_clock;
    QString m_operation;
};

}  // namespace bench
