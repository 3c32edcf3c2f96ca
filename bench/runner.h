// SPDX-License-Identifier: MIT
#pragma once

#include "bench/result.h"
#include "bench/scenario.h"

#include <QString>
#include <QVector>

namespace bench {

class Measurements;

/// Measures both sides in turn, each time in a fresh process of this program.
class Runner
{
public:
    Runner(int runs, Clock clock, QString operation);

    /// \a names at this size, in the order in which the operations were done. Empty when a process failed or both sides
    /// did not list the same number of tags, which is told on the standard error.
    QVector<Result> run(Names names, int n) const;

private:
    [[nodiscard]] QStringList arguments(Names names, int n, const QString& operation) const;
    bool measureAll(Names names, int n, const QString& operation, Measurements* into) const;

    int m_runs;
    Clock m_clock;
    QString m_operation;
};

}  // namespace bench
