// SPDX-License-Identifier: MIT
#include "host/app/commandline.h"

#include <QtTest>

#include <vector>

namespace {

CommandLine parse(const QList<QByteArray>& arguments)
{
    std::vector<const char*> argv = {"vellum"};
    for (const QByteArray& argument : arguments)
        argv.push_back(argument.constData());
    return CommandLine::parse(int(argv.size()), argv.data());
}

}  // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void opensAFolder();
    void keepsBytesThatAreNoUtf8();
    void readsTheWindowOptions();
    void readsTheCommands();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void helpNamesEveryOption();
};

void TestCommandLine::opensAFolder()
{
    QCOMPARE(parse({}).action, CommandLine::Action::OpenWindow);
    QVERIFY(parse({}).folder.isEmpty());
    const CommandLine commandLine = parse({"my pictures", "--library", "a.db"});
    QCOMPARE(commandLine.folder, QByteArray("my pictures"));
    QCOMPARE(commandLine.libraryPath(), QByteArray("a.db"));
    QVERIFY(!commandLine.needsNoDisplay());
    QCOMPARE(parse({"--", "--strange"}).folder, QByteArray("--strange"));
}

void TestCommandLine::keepsBytesThatAreNoUtf8()
{
    QCOMPARE(parse({"/p/\xff\xe4\xb8"}).folder, QByteArray("/p/\xff\xe4\xb8"));
    QCOMPARE(parse({"--search", "\xe5\xb1\xb1"}).search, QStringLiteral("山"));
    QVERIFY(!parse({"--library", "\xff.db"}).error.isEmpty());
}

void TestCommandLine::readsTheWindowOptions()
{
    const CommandLine commandLine = parse({"--screenshot=w.png", "--page", "favorites", "--size", "1100x700", "--scale",
                                           "1.5", "--plugin", "p.so", "folder"});
    QVERIFY2(commandLine.error.isEmpty(), qPrintable(commandLine.error));
    QCOMPARE(commandLine.action, CommandLine::Action::Screenshot);
    QCOMPARE(commandLine.screenshotFile, QByteArray("w.png"));
    QCOMPARE(commandLine.page, CommandLine::Page::Favorites);
    QCOMPARE(commandLine.size.value(), QSize(1100, 700));
    QCOMPARE(commandLine.scale.value(), 1.5);
    QCOMPARE(commandLine.pluginFile, QByteArray("p.so"));
}

void TestCommandLine::readsTheCommands()
{
    const CommandLine import = parse({"--import", "folder", "--library", "a.db"});
    QCOMPARE(import.action, CommandLine::Action::Import);
    QCOMPARE(import.folder, QByteArray("folder"));
    QVERIFY(import.needsNoDisplay());

    const CommandLine list = parse({"--library", "a.db", "--list", "categories", "--json"});
    QCOMPARE(list.action, CommandLine::Action::List);
    QCOMPARE(list.list, CommandLine::List::Categories);
    QVERIFY(list.json);

    QCOMPARE(parse({"--read-metadata"}).action, CommandLine::Action::ReadMetadata);
    QCOMPARE(parse({"--help"}).action, CommandLine::Action::ShowHelp);
    QCOMPARE(parse({"-v"}).action, CommandLine::Action::ShowVersion);
}

void TestCommandLine::refusesWrongUsage_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::newRow("unknown option") << QList<QByteArray>{"--colour"};
    QTest::newRow("value missing") << QList<QByteArray>{"--import"};
    QTest::newRow("two folders") << QList<QByteArray>{"a", "b"};
    QTest::newRow("folder twice") << QList<QByteArray>{"a", "--import", "b"};
    QTest::newRow("empty folder") << QList<QByteArray>{""};
    QTest::newRow("list of what") << QList<QByteArray>{"--list", "stars", "--library", "a.db"};
    QTest::newRow("list of which") << QList<QByteArray>{"--list", "tags"};
    QTest::newRow("json alone") << QList<QByteArray>{"--json"};
    QTest::newRow("two commands") << QList<QByteArray>{"--import", "a", "--list", "tags"};
    QTest::newRow("page") << QList<QByteArray>{"--page", "last"};
    QTest::newRow("size") << QList<QByteArray>{"--size", "1100"};
    QTest::newRow("no size") << QList<QByteArray>{"--size", "0x5"};
    QTest::newRow("vast size") << QList<QByteArray>{"--size", "99999x99999"};
    QTest::newRow("scale") << QList<QByteArray>{"--scale", "nan"};
    QTest::newRow("window option of a command") << QList<QByteArray>{"--import", "a", "--scale", "2"};
}

void TestCommandLine::refusesWrongUsage()
{
    QFETCH(QList<QByteArray>, arguments);
    const CommandLine commandLine = parse(arguments);
    QVERIFY(!commandLine.error.isEmpty());
    QVERIFY(!commandLine.error.contains(QLatin1Char('\n')));
    QVERIFY(commandLine.needsNoDisplay());
}

void TestCommandLine::helpNamesEveryOption()
{
    for (const char* const option :
         {"library FILE", "import FOLDER", "list tags|categories|files", "json", "screenshot FILE", "page PAGE",
          "search TEXT", "size WxH", "scale S", "plugin FILE", "help", "version"})
        QVERIFY2(CommandLine::helpText().contains(QStringLiteral("--") + QLatin1String(option)), option);
    for (const QString& line : CommandLine::helpText().split(QLatin1Char('\n')))
        QVERIFY2(line.size() <= 80, qPrintable(line));
}

QTEST_APPLESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
