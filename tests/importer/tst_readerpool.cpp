// SPDX-License-Identifier: MIT
#include "host/importer/metadataanswer.h"
#include "host/importer/readerpool.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <QMap>

class TestReaderPool : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qunsetenv(harmfulReaderVariable); }
    void answersEachFileOnce();
    void outlivesFilesThatBringItDown();
    void endsAFileThatHangs();
    void tellsWhenItCannotRun_data();
    void tellsWhenItCannotRun();

private:
    QMap<int, MetadataAnswer> readAll(const QVector<QByteArray>& paths, const ReaderPool::Settings& settings);
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return m_folder.file(name); }

    TestFolder m_folder;
};

QMap<int, MetadataAnswer> TestReaderPool::readAll(const QVector<QByteArray>& paths,
                                                  const ReaderPool::Settings& settings)
{
    QMap<int, MetadataAnswer> answers;
    int count = 0;
    ReaderPool pool(settings);
    connect(&pool, &ReaderPool::answered, this, [&](int index, const MetadataAnswer& answer) {
        answers.insert(index, answer);
        ++count;
    });
    pool.read(paths);
    [&] { QTRY_COMPARE_WITH_TIMEOUT(count, paths.size(), 60000); }();
    return answers;
}

void TestReaderPool::answersEachFileOnce()
{
    QVector<QByteArray> paths;
    for (int i = 0; i < 500; ++i) {
        paths.append(path(QByteArray::number(i) + "\xff\n.xmp"));
        writeSidecar(paths.last(), {QString::number(i)});
    }
    ReaderPool::Settings settings;
    settings.processes = 3;
    const QMap<int, MetadataAnswer> answers = readAll(paths, settings);
    QCOMPARE(answers.size(), paths.size());
    for (int i = 0; i < paths.size(); ++i)
        QCOMPARE(answers.value(i).keywords, QStringList{QString::number(i)});
}

void TestReaderPool::outlivesFilesThatBringItDown()
{
    qputenv(harmfulReaderVariable, "1");
    QVector<QByteArray> paths;
    for (int i = 0; i < 60; ++i) {
        const char* const kind = i % 10 == 3 ? "crash" : i % 10 == 7 ? "babble" : "fine";
        paths.append(path(kind + QByteArray::number(i) + ".xmp"));
        writeSidecar(paths.last(), {QString::number(i)});
    }
    const QMap<int, MetadataAnswer> answers = readAll(paths, {});
    for (int i = 0; i < paths.size(); ++i) {
        const bool fine = i % 10 != 3 && i % 10 != 7;
        QCOMPARE(answers.value(i).error.isEmpty(), fine);
        QCOMPARE(answers.value(i).keywords, fine ? QStringList{QString::number(i)} : QStringList());
    }
}

void TestReaderPool::endsAFileThatHangs()
{
    qputenv(harmfulReaderVariable, "1");
    writeSidecar(path("fine.xmp"), {QStringLiteral("fine")});
    ReaderPool::Settings settings;
    settings.fileLimit = std::chrono::milliseconds(1500);
    const QMap<int, MetadataAnswer> answers = readAll({path("fine.xmp"), path("hang.jpg"), path("fine.xmp")}, settings);
    QCOMPARE(answers.value(0).keywords, QStringList{QStringLiteral("fine")});
    QVERIFY2(answers.value(1).error.contains(QLatin1String("1.5 seconds")), qPrintable(answers.value(1).error));
    QCOMPARE(answers.value(2).keywords, QStringList{QStringLiteral("fine")});
}

void TestReaderPool::tellsWhenItCannotRun_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("no program") << QStringLiteral("/nowhere/at/all");
    QTest::newRow("a program that is no reader") << QStringLiteral("/bin/echo");
    QTest::newRow("a program that ends at once") << QStringLiteral("/bin/false");
}

void TestReaderPool::tellsWhenItCannotRun()
{
    QFETCH(QString, program);
    ReaderPool::Settings settings;
    settings.program = program;
    settings.processes = 1;
    ReaderPool pool(settings);
    QSignalSpy failed(&pool, &ReaderPool::failed);
    pool.read({path("fine.xmp")});
    QTRY_COMPARE(failed.size(), 1);
    QVERIFY(failed.first().first().toString().contains(program));
}

READER_TEST_MAIN(TestReaderPool)
#include "tst_readerpool.moc"
