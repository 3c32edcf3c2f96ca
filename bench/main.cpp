// SPDX-License-Identifier: MIT
#include "bench/names.h"
#include "bench/report.h"
#include "bench/runner.h"
#include "bench/scenario.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLoggingCategory>

namespace {

constexpr int defaultSizes[] = {1000, 10000, 100000};
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
    QCommandLineOption processorTime{QStringLiteral("processor-time"),
                                     QStringLiteral("Count processor time: for a machine that is busy otherwise.")};
    QCommandLineOption measure{QStringLiteral("measure"), QStringLiteral("One run of one side, in this process."),
                               QStringLiteral("plugin|baseline")};
};

bool parse(QCommandLineParser* parser, const Options& options)
{
    parser->setApplicationDescription(
        QStringLiteral("Measures the tag manager window against one QListView over the same tags."));
    parser->addHelpOption();
    parser->addOptions({options.size, options.json, options.runs, options.operation, options.sections,
                        options.processorTime, options.measure});
    parser->process(*QCoreApplication::instance());
    const auto isCount = [&](const QCommandLineOption& option) {
        return !parser->isSet(option) || parser->value(option).toInt() > 0;
    };
    if (isCount(options.size) && isCount(options.runs))
        return true;
    std::fprintf(stderr, "--n and --runs take numbers above zero.\n");
    return false;
}

QVector<bench::Result> runAll(const QCommandLineParser& parser, const Options& options)
{
    const auto clock = parser.isSet(options.processorTime) ? bench::Clock::Processor : bench::Clock::Wall;
    const bench::Runner runner(parser.value(options.runs).toInt(), clock, parser.value(options.operation));
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
    const bool plugin = parser.value(options.measure) == QLatin1String("plugin");
    task.side = plugin ? bench::SideKind::Plugin : bench::SideKind::Baseline;
    task.names = parser.isSet(options.sections) ? bench::Names::Sections : bench::Names::Mixed;
    task.n = parser.value(options.size).toInt();
    task.clock = parser.isSet(options.processorTime) ? bench::Clock::Processor : bench::Clock::Wall;
    task.operation = parser.value(options.operation);
    bench::measure(task);
    return 0;
}

}  // namespace

int main(int argc, char* argv[])
{
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
