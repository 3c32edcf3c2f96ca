// SPDX-License-Identifier: MIT
#include "bench/library/libraryrunner.h"

#include "bench/library/librarybuilder.h"
#include "bench/library/librarycontent.h"
#include "bench/library/libraryscenario.h"
#include "bench/library/picturebuilder.h"
#include "bench/measurements.h"
#include "host/library/database/libraryerror.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace {

constexpr double longestPause = 50;  // milliseconds
// Also what the operations' names begin with.
const QString libraryPart = QStringLiteral("library");
const QString windowPart = QStringLiteral("window");
const QString pausePart = QStringLiteral("pause");
const QString unfinished = QStringLiteral(".unfinished");

QString libraryFile(const QString& folder, int tags)
{
    return QDir(folder).absoluteFilePath(QStringLiteral("library-%1").arg(tags));
}

QString pictureFolder(const QString& folder, int tags)
{
    return QDir(folder).absoluteFilePath(QStringLiteral("pictures-%1").arg(tags));
}

/// Builds it under another name, so that what is there is whole.
template <typename Build>
bool provide(const QString& path, Build build)
{
    if (QFile::exists(path))
        return true;
    QFile::remove(path + unfinished);
    QDir(path + unfinished).removeRecursively();
    if (build(path + unfinished) && QDir().rename(path + unfinished, path))
        return true;
    bench::tell(QStringLiteral("Cannot build ") + path);
    return false;
}

}  // namespace

bench::LibraryRunner::LibraryRunner(const QString& folder, int tags, int runs, Clock clock)
    : m_folder(folder)
    , m_tags(tags)
    , m_runs(runs)
    , m_clock(clock)
{
}

QVector<bench::Result> bench::LibraryRunner::runLibrary() const
{
    Measurements library;
    Measurements window;
    if (!prepare() || !measureAll({{SideKind::Baseline, libraryPart, &library},
                                   {SideKind::Plugin, libraryPart, &library},
                                   {SideKind::Plugin, windowPart, &window}}))
        return {};
    QVector<Result> results;
    const auto append = [&](const Measurements& from, const QString& part) {
        const QStringList operations = from.operations();
        for (const QString& operation : operations) {
            Result result = from.result(operation, m_tags);
            result.baseline = library.result(operation, m_tags).baseline;
            result.operation = part + QLatin1Char('_') + operation;
            results.append(result);
        }
    };
    append(library, libraryPart);
    append(window, windowPart);
    return results;
}

QVector<bench::Result> bench::LibraryRunner::runPauses() const
{
    Measurements pauses;
    if (!prepare() || !measureAll({{SideKind::Plugin, pausePart, &pauses}}))
        return {};
    QVector<Result> results;
    const QStringList operations = pauses.operations();
    for (const QString& operation : operations) {
        Result result = pauses.result(operation, m_tags);
        result.baseline = longestPause;
        result.operation = pausePart + QLatin1Char('_') + operation;
        results.append(result);
    }
    return results;
}

bool bench::LibraryRunner::prepare() const
{
    const LibraryContent content(m_tags);
    try {
        return provide(libraryFile(m_folder, m_tags),
                       [&](const QString& path) {
                           buildLibrary(path, content);
                           return true;
                       }) &&
               provide(pictureFolder(m_folder, m_tags),
                       [&](const QString& path) { return buildPictures(path, content); });
    } catch (const LibraryError& error) {
        tell(error.message());
        return false;
    }
}

bool bench::LibraryRunner::measureAll(const QVector<Process>& processes) const
{
    for (int run = 0; run < m_runs; ++run) {
        tell(QStringLiteral("A library of %1 tags, run %2 of %3").arg(m_tags).arg(run + 1).arg(m_runs));
        for (const Process& process : processes) {
            QStringList arguments{QStringLiteral("--part"),   process.part,
                                  QStringLiteral("--folder"), m_folder,
                                  QStringLiteral("--n"),      QString::number(m_tags)};
            if (m_clock == Clock::Processor)
                arguments.append(QStringLiteral("--processor-time"));
            if (!process.into->measure(process.side, arguments))
                return false;
        }
    }
    return true;
}

bool bench::LibraryRunner::measure(SideKind side, const QString& part, const QString& folder, int tags, Clock clock)
{
    const QTemporaryDir own(QDir(folder).absoluteFilePath(QStringLiteral("run-XXXXXX")));
    LibraryTask task{side, own.filePath(QStringLiteral("library")), pictureFolder(folder, tags), tags};
    task.hasWindow = part != libraryPart;
    task.clock = clock;
    try {
        if (!QFile::copy(libraryFile(folder, tags), task.library))
            throw std::runtime_error("The library cannot be copied.");
        if (part == pausePart)
            measurePauses(task);
        else
            measureLibrary(task);
    } catch (const std::runtime_error& error) {
        tell(QString::fromUtf8(error.what()));
        return false;
    }
    return true;
}

QString bench::LibraryRunner::partNames()
{
    return libraryPart + QLatin1Char('|') + windowPart + QLatin1Char('|') + pausePart;
}
