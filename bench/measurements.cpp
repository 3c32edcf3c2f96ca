// SPDX-License-Identifier: MIT
#include "bench/measurements.h"

#include "bench/median.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

#include <algorithm>

namespace {

int indexOf(bench::SideKind side)
{
    return side == bench::SideKind::Plugin ? 0 : 1;
}

}  // namespace

bool bench::Measurements::measure(SideKind side, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  QStringList{QStringLiteral("--measure"), sideName(side)} + arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        tell(QStringLiteral("A measuring process failed: ") + process.errorString());
        return false;
    }
    const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
    return std::all_of(lines.cbegin(), lines.cend(),
                       [&](const QByteArray& line) { return line.isEmpty() || keepLine(side, line); });
}

bool bench::Measurements::keepLine(SideKind side, const QByteArray& line)
{
    const QList<QByteArray> words = line.split(' ');
    const QString operation = QString::fromLatin1(words.value(0));
    const qint64 shown = words.value(2).toLongLong();
    if (!m_operations.contains(operation)) {
        m_operations.append(operation);
        m_shown.insert(operation, shown);
    }
    if (m_shown.value(operation) != shown) {
        tell(QStringLiteral("After %1 one side shows %2, the other %3")
                 .arg(operation)
                 .arg(m_shown.value(operation))
                 .arg(shown));
        return false;
    }
    m_values[indexOf(side)][operation].append(words.value(1).toDouble());
    return true;
}

bench::Result bench::Measurements::result(const QString& operation, int n) const
{
    return {operation, n, median(m_values[indexOf(SideKind::Plugin)].value(operation)),
            median(m_values[indexOf(SideKind::Baseline)].value(operation))};
}

void bench::tell(const QString& text)
{
    QTextStream(stderr) << text << '\n';
}

QString bench::sideName(SideKind side)
{
    return side == SideKind::Plugin ? QStringLiteral("plugin") : QStringLiteral("baseline");
}

void bench::reportLine(const QString& operation, double value, qint64 shown)
{
    std::printf("%s %.6f %lld\n", qPrintable(operation), value, shown);
    std::fflush(stdout);
}
