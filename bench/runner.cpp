// SPDX-License-Identifier: MIT
#include "bench/runner.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <utility>

namespace {

constexpr int smallerBy = 10;  // memory per further tag is told from a library of a tenth of the size

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

bool isMemory(const QString& operation)
{
    return operation.startsWith(QLatin1String("memory"));
}

void tell(const QString& text)
{
    QTextStream(stderr) << text << '\n';
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
            if (all.operations.contains(operation) && !measureAll(names, fewer, operation, &smaller))
                return {};
        }
    }
    QVector<Result> results;
    for (const QString& operation : qAsConst(all.operations)) {
        Result result{prefix(names) + operation, n, median(all.plugin.value(operation)),
                      median(all.baseline.value(operation))};
        if (isMemory(operation)) {
            result.plugin = (result.plugin - median(smaller.plugin.value(operation))) / (n - fewer);
            result.baseline = (result.baseline - median(smaller.baseline.value(operation))) / (n - fewer);
        }
        results.append(result);
    }
    return results;
}

bool bench::Runner::measureAll(Names names, int n, const QString& operation, Measurements* into) const
{
    for (int run = 0; run < m_runs; ++run) {
        tell(QStringLiteral("%1 tags, run %2 of %3").arg(n).arg(run + 1).arg(m_runs));
        for (const SideKind side : {SideKind::Baseline, SideKind::Plugin}) {
            if (!measureOnce({side, names, n, m_clock, operation}, into))
                return false;
        }
    }
    return true;
}

bool bench::Runner::measureOnce(const Task& task, Measurements* into) const
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), childArguments(task));
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        tell(QStringLiteral("A measuring process failed: ") + process.errorString());
        return false;
    }
    const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
    return std::all_of(lines.cbegin(), lines.cend(),
                       [&](const QByteArray& line) { return line.isEmpty() || keepLine(line, task, into); });
}

bool bench::Runner::keepLine(const QByteArray& line, const Task& task, Measurements* into) const
{
    const QList<QByteArray> words = line.split(' ');
    const QString operation = QString::fromLatin1(words.value(0));
    const int shownTags = words.value(2).toInt();
    if (!into->operations.contains(operation)) {
        into->operations.append(operation);
        into->shownTags.insert(operation, shownTags);
    }
    if (into->shownTags.value(operation) != shownTags) {
        tell(QStringLiteral("After %1 one side shows %2 tags, the other %3")
                 .arg(operation)
                 .arg(into->shownTags.value(operation))
                 .arg(shownTags));
        return false;
    }
    Values& values = task.side == SideKind::Plugin ? into->plugin : into->baseline;
    values[operation].append(words.value(1).toDouble());
    return true;
}

QStringList bench::Runner::childArguments(const Task& task)
{
    QStringList arguments{QStringLiteral("--measure"),
                          task.side == SideKind::Plugin ? QStringLiteral("plugin") : QStringLiteral("baseline"),
                          QStringLiteral("--n"), QString::number(task.n)};
    if (task.names == Names::Sections)
        arguments.append(QStringLiteral("--sections"));
    if (task.clock == Clock::Processor)
        arguments.append(QStringLiteral("--processor-time"));
    if (!task.operation.isEmpty())
        arguments << QStringLiteral("--operation") << task.operation;
    return arguments;
}
