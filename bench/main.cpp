// SPDX-License-Identifier: MIT
#include "bench/library/librarycontent.h"
#include "bench/library/libraryrunner.h"
#include "bench/measurements.h"
#include "bench/names.h"
#include "bench/report.h"
#include "bench/runner.h"
#include "bench/scenario.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/thumbnailreader.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <cstring>

namespace {

constexpr int defaultSizes[] = {1000, 10000, 100000};
constexpr int defaultLibrarySize = 100000;
constexpr int defaultSectionSizes[] = {5000, 10000, bench::sectionNamesLimit};

struct Options
{
    QCommandLineOption size{QStringLiteral("n"), QStringLiteral("One size only."), QStringLiteral("tags")};
    QCommandLineOption json{QStringLiteral("json"), QStringLiteral("Write the results there, too."),
                            QStringLiteral("file")};
    QCommandLineOption runs{QStringLiteral("runs"), QStringLiteral("Runs of each side, 5 unless given."),
                            QStringLiteral("count"), QStringLiteral("5")};
    QCommandLineOption operation{QStringLiteral("operation"), QStringLiteral("One operation only."),
                                 QStringLiteral("name")};
    QCommandLineOption sections{QStringLiteral("sections"), QStringLiteral("Every tag under an initial of its own.")};
    QCommandLineOption library{QStringLiteral("library"),
                               QStringLiteral("The host on a large library instead, against the program sqlite3.")};
    QCommandLineOption pauses{QStringLiteral("pauses"),
                              QStringLiteral("The longest pauses of the host's window instead, or as well.")};
    QCommandLineOption folder{QStringLiteral("folder"),
                              QStringLiteral("Where the large library is built and kept; a temporary folder else."),
                              QStringLiteral("path")};
    QCommandLineOption processorTime{QStringLiteral("processor-time"),
                                     QStringLiteral("Count processor time: for a machine that is busy otherwise.")};
    QCommandLineOption measure{QStringLiteral("measure"), QStringLiteral("One run of one side, in this process."),
                               QStringLiteral("plugin|baseline")};
    QCommandLineOption part{QStringLiteral("part"), QStringLiteral("What of the large library that run measures."),
                            bench::LibraryRunner::partNames()};
};

bool isLibrary(const QCommandLineParser& parser, const Options& options)
{
    return parser.isSet(options.library) || parser.isSet(options.pauses) || parser.isSet(options.part);
}

int librarySize(const QCommandLineParser& parser, const Options& options)
{
    return parser.isSet(options.size) ? parser.value(options.size).toInt() : defaultLibrarySize;
}

bench::Clock clockOf(const QCommandLineParser& parser, const Options& options)
{
    return parser.isSet(options.processorTime) ? bench::Clock::Processor : bench::Clock::Wall;
}

bool parse(QCommandLineParser* parser, const Options& options)
{
    parser->setApplicationDescription(
        QStringLiteral("Measures the tag manager window against one QListView over the same tags."));
    parser->addHelpOption();
    parser->addOptions({options.size, options.json, options.runs, options.operation, options.sections, options.library,
                        options.pauses, options.folder, options.processorTime, options.measure, options.part});
    parser->process(*QCoreApplication::instance());
    const auto isCount = [&](const QCommandLineOption& option, int least) {
        return !parser->isSet(option) || parser->value(option).toInt() >= least;
    };
    const int fewestTags = isLibrary(*parser, options) ? bench::LibraryContent::fewestTags : 1;
    if (isCount(options.size, fewestTags) && isCount(options.runs, 1))
        return true;
    bench::tell(QStringLiteral("--n takes numbers from %1, --runs from 1.").arg(fewestTags));
    return false;
}

QVector<bench::Result> runLibrary(const QCommandLineParser& parser, const Options& options)
{
    const QTemporaryDir temporary;
    const QString folder = parser.isSet(options.folder) ? parser.value(options.folder) : temporary.path();
    const bench::LibraryRunner runner(folder, librarySize(parser, options), parser.value(options.runs).toInt(),
                                      clockOf(parser, options));
    QVector<bench::Result> results;
    if (parser.isSet(options.library))
        results = runner.runLibrary();
    if (parser.isSet(options.pauses))
        results += runner.runPauses();
    return results;
}

QVector<bench::Result> runAll(const QCommandLineParser& parser, const Options& options)
{
    if (isLibrary(parser, options))
        return runLibrary(parser, options);
    const bench::Runner runner(parser.value(options.runs).toInt(), clockOf(parser, options),
                               parser.value(options.operation));
    if (parser.isSet(options.size)) {
        const auto names = parser.isSet(options.sections) ? bench::Names::Sections : bench::Names::Mixed;
        return runner.run(names, parser.value(options.size).toInt());
    }
    QVector<bench::Result> results;
    if (!parser.isSet(options.sections)) {
        for (const int n : defaultSizes)
            results += runner.run(bench::Names::Mixed, n);
    }
    for (const int n : defaultSectionSizes)
        results += runner.run(bench::Names::Sections, n);
    return results;
}

int measure(const QCommandLineParser& parser, const Options& options)
{
    bench::Task task;
    const bool plugin = parser.value(options.measure) == bench::sideName(bench::SideKind::Plugin);
    task.side = plugin ? bench::SideKind::Plugin : bench::SideKind::Baseline;
    task.names = parser.isSet(options.sections) ? bench::Names::Sections : bench::Names::Mixed;
    task.n = parser.value(options.size).toInt();
    task.clock = clockOf(parser, options);
    task.operation = parser.value(options.operation);
    if (parser.isSet(options.part)) {
        const bool measured =
            bench::LibraryRunner::measure(task.side, parser.value(options.part), parser.value(options.folder),
                                          librarySize(parser, options), task.clock);
        return measured ? 0 : 1;
    }
    bench::measure(task);
    return 0;
}

}  // namespace

int main(int argc, char* argv[])
{
    // An import starts its own program for reading the pictures.
    if (argc > 1 && std::strcmp(argv[1], metadataReaderOption) == 0)
        return runMetadataReader();
    if (argc == 2 && std::strcmp(argv[1], thumbnailReaderOption) == 0)
        return runThumbnailReader(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("*.info=false\n*.debug=false"));
    const QApplication application(argc, argv);
    const Options options;
    QCommandLineParser parser;
    if (!parse(&parser, options))
        return 2;
    if (parser.isSet(options.measure))
        return measure(parser, options);
    const QVector<bench::Result> results = runAll(parser, options);
    if (results.isEmpty())
        return 1;
    bench::printTable(results);
    if (parser.isSet(options.json) && !bench::writeJson(results, parser.value(options.json)))
        return 1;
    return 0;
}
