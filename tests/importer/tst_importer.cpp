// SPDX-License-Identifier: MIT
#include "host/importer/importer.h"
#include "host/library/library.h"
#include "host/library/libraryreader.h"
#include "tests/importer/importrun.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <ilibrarydataprovider.h>
#include <itagaction.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class TestImporter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void importsTheSamples();
    void joinsSidecars();
    void writesNothingWhenNothingChanged();
    void followsChanges();
    void aTouchedFileKeepsItsTags();
    void vanishedFilesLeave();
    void otherFoldersStay();
    void filesOutOfSightStay();
    void badFilesAreNamedAndSkipped();
    void aBadSidecarSpoilsNothing();
    void harmfulFilesAreNamedAndSkipped();
    void reportsProgress();
    void stopsAtOnceAndGoesOnLater();
    void tellsOfFailure();

private:
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return m_folder->file(name); }
    void makeFolder(const QByteArray& name) const { QCOMPARE(mkdir(path(name).constData(), 0755), 0); }
    ImportRun import(const ReaderPool::Settings& settings = {}) { return ImportRun::run(*m_library, m_root, settings); }
    [[nodiscard]] QMap<QByteArray, QStringList> tags() const;

    std::unique_ptr<TestFolder> m_folder;
    QByteArray m_root;
    QTemporaryDir m_libraryFolder;
    std::unique_ptr<Library> m_library;
};

void TestImporter::init()
{
    m_folder = std::make_unique<TestFolder>();
    m_root = m_folder->path();
    QString error;
    m_library = Library::open(
        m_libraryFolder.filePath(QLatin1String(QTest::currentTestFunction()) + QLatin1String(".db")), &error);
    QVERIFY2(m_library, qPrintable(error));
}

void TestImporter::cleanup()
{
    qunsetenv(harmfulReaderVariable);
    m_library.reset();
    m_folder.reset();
}

// By names relative to the imported folder.
QMap<QByteArray, QStringList> TestImporter::tags() const
{
    QMap<QByteArray, QStringList> result;
    const QMap<QByteArray, QStringList> all = tagsByFile(*m_library);
    for (auto it = all.begin(); it != all.end(); ++it)
        result.insert(it.key().startsWith(m_root + '/') ? it.key().mid(m_root.size() + 1) : it.key(), it.value());
    return result;
}

void TestImporter::importsTheSamples()
{
    const ImportRun run = ImportRun::run(*m_library, VELLUM_SAMPLES);
    QCOMPARE(run.finishedCount, 1);
    QCOMPARE(run.summary.error, QString());
    QVERIFY(run.skipped.isEmpty());
    QCOMPARE(run.summary.found, 26);
    QCOMPARE(run.summary.added, 26);
    QCOMPARE(run.summary.totals.files, qint64(26));
    QVERIFY(run.summary.totals.tags > 60);
    const QMap<QByteArray, QStringList> tags = tagsByFile(*m_library);
    QCOMPARE(tags.value(VELLUM_SAMPLES "/Design/Tartan.png"),
             (QStringList{QStringLiteral("@home"), QStringLiteral("Client work"), QStringLiteral("Pattern"),
                          QStringLiteral("Textile"), QStringLiteral("红色")}));
}

void TestImporter::joinsSidecars()
{
    writePicture(path("a.jpg"), {QStringLiteral("embedded"), QStringLiteral("shared")});
    writeSidecar(path("a.jpg.xmp"), {QStringLiteral("shared"), QStringLiteral("one, two")});
    writeSidecar(path("a.xmp"), {QStringLiteral("both")});
    writeFile(path("a.svg"), "<svg/>");
    writeFile(path("caf\xe9.gif"), "GIF89a");
    import();
    const QMap<QByteArray, QStringList> expected = {
        {"a.jpg",
         {QStringLiteral("both"), QStringLiteral("embedded"), QStringLiteral("one, two"), QStringLiteral("shared")}},
        {"a.svg", {QStringLiteral("both")}},
        {"caf\xe9.gif", {}}};
    QCOMPARE(tags(), expected);
}

void TestImporter::writesNothingWhenNothingChanged()
{
    for (int i = 0; i < 30; ++i)
        writePicture(path(QByteArray::number(i) + ".jpg"), {QString::number(i)});
    QCOMPARE(import().summary.added, 30);
    const QByteArray file = m_library->path().toUtf8();
    const QByteArray before = fileBytes(file) + fileBytes(file + "-wal");
    const ImportRun again = import();
    QCOMPARE(again.summary.added + again.summary.changed + again.summary.removed, 0);
    QCOMPARE(again.summary.totals.files, qint64(30));
    QCOMPARE(fileBytes(file) + fileBytes(file + "-wal"), before);
}

void TestImporter::followsChanges()
{
    writePicture(path("a.jpg"), {QStringLiteral("one")});
    writePicture(path("b.jpg"), {QStringLiteral("one")});
    writeSidecar(path("b.xmp"), {QStringLiteral("two")});
    import();
    writePicture(path("a.jpg"), {QStringLiteral("three, four")});
    writeSidecar(path("b.xmp"), {QStringLiteral("five!")});
    QCOMPARE(import().summary.changed, 2);
    QCOMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("three, four")});
    QCOMPARE(tags().value("b.jpg"), (QStringList{QStringLiteral("five!"), QStringLiteral("one")}));
    QCOMPARE(unlink(path("b.xmp").constData()), 0);
    QCOMPARE(import().summary.changed, 1);
    QCOMPARE(tags().value("b.jpg"), QStringList{QStringLiteral("one")});
}

void TestImporter::aTouchedFileKeepsItsTags()
{
    writePicture(path("a.jpg"), {QStringLiteral("one")});
    import();
    const qint64 tag = LibraryReader::open(m_library->path())->tags().first().id;
    m_library->dataProvider()->tagAction()->renameTag(tag, QStringLiteral("renamed"));
    QTRY_COMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("renamed")});

    const timespec times[2] = {{0, UTIME_OMIT}, {1000, 1}};
    QCOMPARE(utimensat(AT_FDCWD, path("a.jpg").constData(), times, 0), 0);
    QCOMPARE(import().summary.changed, 1);
    QCOMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("renamed")});
    QCOMPARE(import().summary.changed, 0);
}

void TestImporter::vanishedFilesLeave()
{
    makeFolder("sub");
    for (const char* const name : {"a.jpg", "b.jpg", "sub/c.jpg"})
        writePicture(path(name), {QStringLiteral("tag")});
    import();
    QCOMPARE(unlink(path("a.jpg").constData()), 0);
    QCOMPARE(rename(path("sub").constData(), path("moved").constData()), 0);
    const ImportRun run = import();
    QCOMPARE(run.summary.removed, 2);
    QCOMPARE(run.summary.added, 1);
    QCOMPARE(tags().keys(), (QList<QByteArray>{"b.jpg", "moved/c.jpg"}));
}

void TestImporter::otherFoldersStay()
{
    makeFolder("one");
    makeFolder("one more");
    writePicture(path("one/a.jpg"), {QStringLiteral("tag")});
    writePicture(path("one more/b.jpg"), {QStringLiteral("tag")});
    import();
    QCOMPARE(unlink(path("one/a.jpg").constData()), 0);
    QCOMPARE(unlink(path("one more/b.jpg").constData()), 0);
    QCOMPARE(ImportRun::run(*m_library, path("one")).summary.removed, 1);
    QCOMPARE(tags().keys(), QList<QByteArray>{"one more/b.jpg"});
    QVERIFY(ImportRun::run(*m_library, path("nowhere")).summary.noSuchFolder);
    QCOMPARE(tags().size(), 1);
}

void TestImporter::filesOutOfSightStay()
{
    makeFolder("seen");
    writePicture(path("seen/a.jpg"), {QStringLiteral("tag")});
    import();
    QCOMPARE(rename(path("seen").constData(), path(".hidden").constData()), 0);
    // A link into nowhere stands for a folder whose disk is not there.
    QCOMPARE(symlink(".hidden", path("seen").constData()), 0);
    QCOMPARE(import().summary.removed, 0);
    QCOMPARE(tags().keys(), QList<QByteArray>{"seen/a.jpg"});
}

void TestImporter::badFilesAreNamedAndSkipped()
{
    writePicture(path("fine.jpg"), {QStringLiteral("tag")});
    writePicture(path("later bad.jpg"), {QStringLiteral("kept")});
    writeFile(path("empty.png"), "");
    writeFile(path("text.jpg"), "no picture");
    const ImportRun run = import();
    QCOMPARE(run.skipped.keys(), (QList<QByteArray>{path("empty.png"), path("text.jpg")}));
    QVERIFY(!run.skipped.first().isEmpty());
    QCOMPARE(run.summary.skipped, 2);
    QCOMPARE(run.summary.totals.files, qint64(2));

    writeFile(path("later bad.jpg"), "no picture");
    const ImportRun again = import();
    QCOMPARE(again.summary.skipped, 3);
    QCOMPARE(again.summary.changed + again.summary.removed, 0);
    QCOMPARE(tags().value("later bad.jpg"), QStringList{QStringLiteral("kept")});
}

void TestImporter::aBadSidecarSpoilsNothing()
{
    writePicture(path("a.jpg"), {QStringLiteral("embedded")});
    writeFile(path("a.xmp"), "<x:xmpmeta");
    for (int i = 0; i < 2; ++i) {
        const ImportRun run = import();
        QCOMPARE(run.skipped.keys(), QList<QByteArray>{path("a.xmp")});
        QCOMPARE(run.summary.added + run.summary.changed, i == 0 ? 1 : 0);
        QCOMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("embedded")});
    }
    writeSidecar(path("a.xmp"), {QStringLiteral("mended")});
    import();
    QCOMPARE(tags().value("a.jpg"), (QStringList{QStringLiteral("embedded"), QStringLiteral("mended")}));
}

void TestImporter::harmfulFilesAreNamedAndSkipped()
{
    qputenv(harmfulReaderVariable, "1");
    for (const char* const name : {"a.jpg", "crash.jpg", "hang.jpg", "z.jpg"})
        writePicture(path(name), {QStringLiteral("tag")});
    ReaderPool::Settings settings;
    settings.fileLimit = std::chrono::milliseconds(1500);
    const ImportRun run = import(settings);
    QCOMPARE(run.summary.error, QString());
    QCOMPARE(run.skipped.keys(), (QList<QByteArray>{path("crash.jpg"), path("hang.jpg")}));
    QCOMPARE(tags().keys(), (QList<QByteArray>{"a.jpg", "z.jpg"}));
}

void TestImporter::reportsProgress()
{
    for (int i = 0; i < 20; ++i)
        writePicture(path(QByteArray::number(i) + ".jpg"), {QString::number(i)});
    Importer importer(m_library.get());
    QSignalSpy progress(&importer, &Importer::progress);
    QSignalSpy finished(&importer, &Importer::finished);
    QVERIFY(importer.start(m_root));
    QVERIFY(importer.isRunning());
    QVERIFY(!importer.start(m_root));
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(!importer.isRunning());
    QCOMPARE(progress.last().first().toInt(), 20);
    QCOMPARE(progress.last().last().toInt(), 20);
    int last = 0;
    for (const QList<QVariant>& step : progress) {
        QVERIFY(step.first().toInt() >= last);
        last = step.first().toInt();
    }
    QVERIFY(importer.start(m_root));
    QTRY_COMPARE(finished.size(), 2);
}

void TestImporter::stopsAtOnceAndGoesOnLater()
{
    qputenv(harmfulReaderVariable, "1");
    for (const char* const name : {"a.jpg", "b.jpg", "c hang.jpg", "d.jpg"})
        writePicture(path(name), {QStringLiteral("tag")});
    {
        Importer importer(m_library.get());
        QSignalSpy finished(&importer, &Importer::finished);
        importer.start(m_root);
        importer.cancel();
        QTRY_COMPARE(finished.size(), 1);
        QVERIFY(finished.first().first().value<ImportSummary>().cancelled);
        // Destroyed while it waits for a file that hangs.
        importer.start(m_root);
    }
    QVERIFY(tags().size() <= 2);
    qunsetenv(harmfulReaderVariable);
    QCOMPARE(import().summary.totals.files, qint64(4));
}

void TestImporter::tellsOfFailure()
{
    writePicture(path("a.jpg"), {QStringLiteral("tag")});
    ReaderPool::Settings settings;
    settings.program = QStringLiteral("/nowhere/at/all");
    const ImportRun run = import(settings);
    QCOMPARE(run.finishedCount, 1);
    QVERIFY(!run.summary.error.isEmpty());
    QVERIFY(!run.summary.noSuchFolder);
    QCOMPARE(import().summary.error, QString());
}

READER_TEST_MAIN(TestImporter)
#include "tst_importer.moc"
