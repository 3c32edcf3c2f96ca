// SPDX-License-Identifier: MIT
#include "bench/memoryusage.h"

#include <QByteArray>
#include <QFile>

bench::MemoryUsage bench::memoryUsage()
{
    MemoryUsage usage;
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return usage;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (line.startsWith("VmRSS:"))
            usage.resident = words.value(1).toLong();
        else if (line.startsWith("VmHWM:"))
            usage.peak = words.value(1).toLong();
    }
    return usage;
}
