// SPDX-License-Identifier: MIT
#include "bench/runner.h"

#include "bench/measurements.h"

#include <utility>

namespace {

constexpr int smallerBy = 10;  // memory per further tag is told from a library of a tenth of the size

bool isMemory(const QString& operation)
{
    return operation.startsWith(QLatin1String("memory"));
}

QString prefix(bench::Names names)
{
    return names == bench::Names::Sections ? QStringLiteral("sections_") : QString();
}

}  // namespace

bench::Runner::Runner(int runs, Clock clock, QString operation)
    : m_runs(runs)
    , m_clock(clock)
    , m_operation(std::move(operation))
{
}

QVector<bench::Result> bench::Runner::run(Names names, int n) const
{
    Measurements all;
    if (!measureAll(names, n, m_operation, &all))
        return {};
    Measurements smaller;
    const bool memoryIsAskedFor = m_operation.isEmpty() || isMemory(m_operation);
    const int fewer = n / smallerBy;
    if (memoryIsAskedFor) {
        for (const QString& operation : {QStringLiteral("memory"), QStringLiteral("memory_peak")}) {
            if (all.operations().contains(operation) && !measureAll(names, fewer, operation, &smaller))
                return {};
        }
    }
    QVector<Result> results;
    const QStringList operations = all.operations();
    for (const QString& operation : operations) {
        Result result = all.result(operation, n);
        if (isMemory(operation)) {
            const Result ofFewer = smaller.result(operation, fewer);
            result.plugin = (result.plugin - ofFewer.plugin) / (n - fewer);
            result.baseline = (result.baseline - ofFewer.baseline) / (n - fewer);
        }
        result.operation.prepend(prefix(names));
        results.append(result);
    }
    return results;
}

bool bench::Runner::measureAll(Names names, int n, const QString& operation, Measurements* into) const
{
    for (int run = 0; run < m_runs; ++run) {
        tell(QStringLiteral("%1 tags, run %2 of %3").arg(n).arg(run + 1).arg(m_runs));
        for (const SideKind side : {SideKind::Baseline, SideKind::Plugin}) {
            if (!into->measure(side, arguments(names, n, operation)))
                return false;
        }
    }
    return true;
}

QStringList bench::Runner::arguments(Names names, int n, const QString& operation) const
{
    QStringList arguments{QStringLiteral("--n"), QString::number(n)};
    if (names == Names::Sections)
        arguments.append(QStringLiteral("--sections"));
    if (m_clock == Clock::Processor)
        arguments.append(QStringLiteral("--processor-time"));
    if (!operation.isEmpty())
        arguments << QStringLiteral("--operation") << operation;
    return arguments;
}
