// SPDX-License-Identifier: MIT
#include "bench/library/libraryrunner.h"

#include "bench/library/librarybuilder.h"
#include "bench/library/librarycontent.h"
#include "bench/library/libraryscenario.h"
#include "bench/library/picturebuilder.h"
#include "bench/measurements.h"
#include "host/library/libraryerror.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

namespace {

constexpr double longestPause = 50;  // milliseconds
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
    Measurements all;
    QVector<Result> results;
    if (prepare() && measureAll({SideKind::Baseline, SideKind::Plugin}, QStringLiteral("--library"), &all)) {
        const QStringList operations = all.operations();
        for (const QString& operation : operations)
            results.append(all.result(operation, m_tags));
    }
    return results;
}

QVector<bench::Result> bench::LibraryRunner::runPauses() const
{
    Measurements all;
    QVector<Result> results;
    if (prepare() && measureAll({SideKind::Plugin}, QStringLiteral("--pauses"), &all)) {
        const QStringList operations = all.operations();
        for (const QString& operation : operations) {
            results.append(all.result(operation, m_tags));
            results.last().baseline = longestPause;
        }
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

bool bench::LibraryRunner::measureAll(const QVector<SideKind>& sides, const QString& option, Measurements* into) const
{
    QStringList arguments{option, QStringLiteral("--folder"), m_folder, QStringLiteral("--n"), QString::number(m_tags)};
    if (m_clock == Clock::Processor)
        arguments.append(QStringLiteral("--processor-time"));
    for (int run = 0; run < m_runs; ++run) {
        tell(QStringLiteral("%1 of %2 tags, run %3 of %4").arg(option.mid(2)).arg(m_tags).arg(run + 1).arg(m_runs));
        for (const SideKind side : sides) {
            if (!into->measure(side, arguments))
                return false;
        }
    }
    return true;
}

bool bench::LibraryRunner::measure(SideKind side, bool pauses, const QString& folder, int tags, Clock clock)
{
    const QTemporaryDir own(QDir(folder).absoluteFilePath(QStringLiteral("run-XXXXXX")));
    const LibraryTask task{side, own.filePath(QStringLiteral("library")), pictureFolder(folder, tags), tags, clock};
    try {
        if (!QFile::copy(libraryFile(folder, tags), task.library))
            throw std::runtime_error("The library cannot be copied.");
        if (pauses)
            measurePauses(task);
        else
            measureLibrary(task);
    } catch (const std::runtime_error& error) {
        tell(QString::fromUtf8(error.what()));
        return false;
    }
    return true;
}
