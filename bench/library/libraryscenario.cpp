// SPDX-License-Identifier: MIT
#include "bench/library/libraryscenario.h"

#include "bench/library/hostside.h"
#include "bench/library/librarycommands.h"
#include "bench/library/librarycontent.h"
#include "bench/library/sqliteside.h"
#include "bench/measurements.h"
#include "bench/median.h"
#include "bench/memoryusage.h"
#include "host/library/readonlylibrary.h"

#include <stdexcept>

namespace {

constexpr double bytesPerKib = 1024;

/// What the file holds, read past the program that wrote it.
qint64 sizeOf(const QString& file)
{
    const auto reader = ReadOnlyLibrary::open(file);
    const LibraryTotals totals = reader ? reader->totals().value : LibraryTotals();
    return totals.tags + totals.links;
}

void report(const bench::LibraryTask& task, const char* operation, double value)
{
    bench::reportLine(QLatin1String(operation), value, sizeOf(task.library));
}

void reportCommands(const bench::LibraryTask& task, const bench::LibraryContent& content, bench::LibrarySide* side)
{
    QVector<const char*> operations;
    QHash<QByteArray, QVector<double>> values;
    for (int turn = 0; turn < bench::libraryTurns; ++turn) {
        const auto commands = bench::libraryCommands(content, turn);
        for (const bench::MeasuredCommand& command : commands) {
            if (turn == 0)
                operations.append(command.operation);
            values[command.operation].append(side->carryOut(command));
        }
    }
    for (const char* operation : qAsConst(operations))
        report(task, operation, bench::median(values.value(operation)));
}

void reportMemory(const bench::LibraryTask& task, const char* operation, long residentBefore)
{
    report(task, operation, static_cast<double>(bench::memoryUsage().peak - residentBefore) * bytesPerKib);
}

void measureHost(const bench::LibraryTask& task, const bench::LibraryContent& content)
{
    const long before = bench::memoryUsage().resident;
    bench::HostSide host(task.library, task.pictures, task.hasWindow, task.clock);
    report(task, "open", host.open());
    if (task.hasWindow)
        reportMemory(task, "memory_open", before);
    reportCommands(task, content, &host);
    report(task, "import", host.import(content));
    if (!task.hasWindow)
        return;
    report(task, "import_folder", host.importFolder(content));
    reportMemory(task, "memory", before);
}

void measureSqlite(const bench::LibraryTask& task, const bench::LibraryContent& content)
{
    bench::SqliteSide sqlite(task.library, task.clock);
    report(task, "open", sqlite.open());
    reportCommands(task, content, &sqlite);
    report(task, "import", sqlite.import(content));
}

}  // namespace

void bench::measureLibrary(const LibraryTask& task)
{
    const LibraryContent content(task.tags);
    if (task.side == SideKind::Plugin)
        measureHost(task, content);
    else
        measureSqlite(task, content);
}
