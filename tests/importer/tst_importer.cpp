// SPDX-License-Identifier: MIT
#include "host/importer/importer.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/library/library.h"
#include "host/library/readonlylibrary.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <ilibrarydataprovider.h>
#include <itagaction.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// One import from start to end, as a test wants to look at it.
struct ImportRun
{
    ImportRun(Library& library, const QByteArray& folder, const ReaderPool::Settings& settings = {},
              const ImportOptions& options = {})
    {
        Importer importer(&library);
        importer.setReaderSettings(settings);
        QObject::connect(&importer, &Importer::skipped, &importer,
                         [this](const QByteArray& path, const QString& reason) { skipped.insert(path, reason); });
        QSignalSpy finished(&importer, &Importer::finished);
        importer.start(folder, options);
        if (finished.isEmpty())
            finished.wait(60000);
        finishedCount = finished.size();
        if (!finished.isEmpty())
            summary = finished.first().first().value<ImportSummary>();
    }

    ImportSummary summary;
    QMap<QByteArray, QString> skipped;  ///< Reasons by path.
    int finishedCount = 0;
};

}  // namespace

class TestImporter : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_libraryFolder.path()));
        m_folder = std::make_unique<TestFolder>();
        m_root = m_folder->path();
        QString error;
        m_library = Library::open(
            m_libraryFolder.filePath(QLatin1String(QTest::currentTestFunction()) + QLatin1String(".db")), &error);
        QVERIFY2(m_library, qPrintable(error));
    }

    void cleanup()
    {
        qunsetenv(harmfulReaderVariable);
        m_library.reset();
        m_folder.reset();
    }

    void joinsSidecars()
    {
        writePicture(path("a.jpg"), {QStringLiteral("embedded"), QStringLiteral("shared")});
        writeSidecar(path("a.jpg.xmp"), {QStringLiteral("shared"), QStringLiteral("one, two")});
        writeSidecar(path("a.xmp"), {QStringLiteral("both")});
        writeFile(path("a.svg"), "<svg/>");
        writeFile(path("caf\xe9.gif"), "GIF89a");
        import();
        const QMap<QByteArray, QStringList> expected = {{"a.jpg",
                                                         {QStringLiteral("both"), QStringLiteral("embedded"),
                                                          QStringLiteral("one, two"), QStringLiteral("shared")}},
                                                        {"a.svg", {QStringLiteral("both")}},
                                                        {"caf\xe9.gif", {}}};
        QCOMPARE(tags(), expected);
    }

    void writesNothingWhenNothingChanged()
    {
        for (int i = 0; i < 30; ++i)
            writePicture(path(QByteArray::number(i) + ".jpg"), {QString::number(i)});
        QCOMPARE(import().summary.added, 30);
        const QByteArray file = m_library->path().toUtf8();
        m_library.reset();
        const QByteArray before = fileBytes(file);
        m_library = Library::open(QString::fromUtf8(file));
        const ImportRun again = import();
        QCOMPARE(again.summary.added + again.summary.changed + again.summary.removed, 0);
        QCOMPARE(again.summary.totals.files, qint64(30));
        m_library.reset();
        QCOMPARE(fileBytes(file), before);
    }

    void followsChanges()
    {
        writePicture(path("a.jpg"), {QStringLiteral("one")});
        writePicture(path("b.jpg"), {QStringLiteral("one")});
        writeSidecar(path("b.xmp"), {QStringLiteral("two")});
        import();
        writePicture(path("a.jpg"), {QStringLiteral("three, four")});
        writeSidecar(path("b.xmp"), {QStringLiteral("six")});  // As many bytes as before.
        QCOMPARE(import().summary.changed, 2);
        QCOMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("three, four")});
        QCOMPARE(tags().value("b.jpg"), (QStringList{QStringLiteral("one"), QStringLiteral("six")}));
        QCOMPARE(unlink(path("b.xmp").constData()), 0);
        QCOMPARE(import().summary.changed, 1);
        QCOMPARE(tags().value("b.jpg"), QStringList{QStringLiteral("one")});
    }

    void filesThatAnotherReaderReadAreReadAgain()
    {
        writePicture(path("a.jpg"), {QStringLiteral("one")});
        import();
        const qint64 root = m_library->addRootAndWait(m_root).rootId;
        ImportedFile file;
        file.path = "a.jpg";
        (void)ReadOnlyLibrary::open(m_library->path())->forEachFileBelow(root, {}, [&file](const FileRow& known) {
            file.state = known.known.state;
            return true;
        });
        file.readerVersion = metadataReaderVersion - 1;
        file.keywords.clear();
        QVERIFY(m_library->importAndWait(root, {file}).succeeded());
        QCOMPARE(tags().value("a.jpg"), QStringList());
        QCOMPARE(import().summary.changed, 1);
        QCOMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("one")});
        QCOMPARE(import().summary.changed, 0);
    }

    void keywordsWithoutEndAreLeftOut()
    {
        writePicture(path("a.jpg"), {QStringLiteral("fine"), QString(1001, QLatin1Char('x'))});
        QVERIFY(import().skipped.value(path("a.jpg")).contains(QLatin1String("1000 characters")));
        QCOMPARE(tags().value("a.jpg"), QStringList{QStringLiteral("fine")});
    }

    void vanishedFilesLeaveOnRequestOnly()
    {
        for (const char* const name : {"sub", "other", "sub more"})
            makeFolder(name);
        for (const char* const name : {"a.jpg", "b.jpg", "sub/c.jpg", "sub/f.jpg", "other/d.jpg", "sub more/e.jpg"})
            writePicture(path(name), {QStringLiteral("tag")});
        import();
        for (const char* const name : {"a.jpg", "sub/c.jpg", "sub more/e.jpg"})
            QCOMPARE(unlink(path(name).constData()), 0);
        ImportOptions forgetting;
        forgetting.forgetsMissing = true;
        const ImportSummary sub = ImportRun(*m_library, path("sub"), {}, forgetting).summary;
        QCOMPARE(sub.removed, 1);
        QCOMPARE(sub.missing, 0);
        QVERIFY(ImportRun(*m_library, path("nowhere")).summary.noSuchFolder);
        QCOMPARE(rename(path("other").constData(), path("moved").constData()), 0);
        const ImportSummary kept = import().summary;
        QCOMPARE(kept.removed, 0);
        QCOMPARE(kept.added, 1);
        QCOMPARE(kept.missing, 2);
        QCOMPARE(kept.away, 1);
        QCOMPARE(tags().size(), 6);
        QCOMPARE(ImportRun(*m_library, m_root, {}, forgetting).summary.removed, 2);
        QCOMPARE(tags().keys(), (QList<QByteArray>{"b.jpg", "moved/d.jpg", "sub more/e.jpg", "sub/f.jpg"}));
    }

    /// An index that is out of order does not find what is there: nothing gets into the library a second time.
    void damagedListOfFilesIsNoticed()
    {
        for (const char* const name : {"a.jpg", "b.jpg", "c.jpg"})
            writePicture(path(name), {QStringLiteral("tag")});
        import();
        const QString file = m_library->path();
        const auto execute = [&file](const QStringList& statements) {
            QProcess program;
            program.start(QStringLiteral("sqlite3"), QStringList{file} + statements);
            QVERIFY(program.waitForFinished() && program.exitCode() == 0);
        };
        m_library.reset();
        const QString writable = QStringLiteral("PRAGMA writable_schema = ON");
        const QString replace = QStringLiteral("UPDATE sqlite_master SET sql = replace(sql, '%1', '%2')"
                                               " WHERE name = 'files_by_path'");
        execute({writable, replace.arg(QStringLiteral("path)"), QStringLiteral("path DESC)"))});
        execute({QStringLiteral("REINDEX files_by_path")});
        execute({writable, replace.arg(QStringLiteral("path DESC)"), QStringLiteral("path)"))});
        m_library = Library::open(file);
        QVERIFY(m_library);
        const ImportSummary summary = import().summary;
        QVERIFY2(summary.error.contains(QLatin1String("out of order")), qPrintable(summary.error));
        QCOMPARE(summary.totals.files, qint64(3));
    }

    void filesOutOfSightStay()
    {
        makeFolder("disk");
        makeFolder("disk/deep");
        writePicture(path("disk/a.jpg"), {QStringLiteral("tag")});
        writePicture(path("disk/deep/b.jpg"), {QStringLiteral("tag")});
        import();
        const QMap<QByteArray, QStringList> before = tags();
        QCOMPARE(before.size(), 2);
        QCOMPARE(rename(path("disk").constData(), path(".away").constData()), 0);
        ImportOptions forgetting;
        forgetting.forgetsMissing = true;
        const auto staysWhole = [&] {
            const ImportSummary summary = ImportRun(*m_library, m_root, {}, forgetting).summary;
            return summary.removed == 0 && tags() == before && filesAway() == summary.away &&
                   (summary.away == 2 || summary.found == 2);
        };
        makeFolder("disk");
        QVERIFY2(staysWhole(), "a mount point without its disk");
        QCOMPARE(rmdir(path("disk").constData()), 0);
        QCOMPARE(symlink("/nowhere/at/all", path("disk").constData()), 0);
        QVERIFY2(staysWhole(), "a link to a disk that is not there");
        QCOMPARE(unlink(path("disk").constData()), 0);
        QCOMPARE(rename(path(".away").constData(), path("disk").constData()), 0);
        QVERIFY(staysWhole());
    }

    void badFilesAreNamedAndSkipped()
    {
        const QStringList kept{QStringLiteral("kept")};
        for (const char* const name : {"fine.jpg", "later bad.jpg"})
            writePicture(path(name), kept);
        writeFile(path("empty.png"), "");
        writeFile(path("fine.xmp"), "<x:xmpmeta");
        writeFile(path("text.jpg"), "no picture");
        const ImportRun run = import();
        QCOMPARE(run.skipped.keys(), (QList<QByteArray>{path("empty.png"), path("fine.xmp"), path("text.jpg")}));
        QVERIFY(!run.skipped.first().isEmpty());
        QCOMPARE(run.summary.totals.files, qint64(2));
        QCOMPARE(tags().value("fine.jpg"), kept);

        writeFile(path("later bad.jpg"), "no picture");
        const ImportRun again = import();
        QCOMPARE(again.skipped.keys(), QList<QByteArray>{path("later bad.jpg")});
        QCOMPARE(again.summary.unreadable, 3);
        QCOMPARE(import().summary.unreadable, 4);
        QCOMPARE(again.summary.changed + again.summary.removed, 0);
        QCOMPARE(tags().value("later bad.jpg"), kept);
        writeSidecar(path("fine.xmp"), {QStringLiteral("mended")});
        import();
        QCOMPARE(tags().value("fine.jpg"), kept + QStringList{QStringLiteral("mended")});
    }

    void harmfulFilesAreNamedAndSkipped()
    {
        qputenv(harmfulReaderVariable, "1");
        QList<QByteArray> harmful;
        for (int i = 0; i < 60; ++i) {
            const char* const kind = i == 30 ? "hang" : i % 10 == 3 ? "crash" : i % 10 == 7 ? "babble" : "fine\xff\n";
            const QByteArray name = path(QByteArray::number(i + 10) + kind + ".jpg");
            writePicture(name, {QString::number(i)});
            if (!name.contains("fine"))
                harmful.append(name);
        }
        ReaderPool::Settings settings;
        settings.processes = 3;
        settings.fileLimit = std::chrono::milliseconds(1500);
        const ImportRun run = import(settings);
        QCOMPARE(run.summary.error, QString());
        QCOMPARE(run.skipped.keys(), harmful);
        QVERIFY(run.skipped.value(path("40hang.jpg")).contains(QLatin1String("1.5 seconds")));
        QCOMPARE(tags().size(), 60 - harmful.size());
        QCOMPARE(tags().value("69fine\xff\n.jpg"), QStringList{QStringLiteral("59")});
    }

    void tellsOfFailure()
    {
        writePicture(path("a.jpg"), {QStringLiteral("tag")});
        ReaderPool::Settings settings;
        for (const char* const program : {"/nowhere/at/all", "/bin/echo", "/bin/false"}) {
            settings.program = QLatin1String(program);
            const ImportRun run = import(settings);
            QCOMPARE(run.finishedCount, 1);
            QVERIFY2(run.summary.error.contains(settings.program), qPrintable(run.summary.error));
            QVERIFY(!run.summary.noSuchFolder);
        }
        QCOMPARE(import().summary.error, QString());
    }

private:
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return m_folder->file(name); }
    void makeFolder(const QByteArray& name) const { QCOMPARE(mkdir(path(name).constData(), 0755), 0); }
    ImportRun import(const ReaderPool::Settings& settings = {}) { return {*m_library, m_root, settings}; }

    /// The names of the tags of each file in the library, sorted, by paths relative to \a root.
    [[nodiscard]] QMap<QByteArray, QStringList> tags(const QByteArray& root) const
    {
        QMap<QByteArray, QStringList> result;
        const std::unique_ptr<ReadOnlyLibrary> reader = ReadOnlyLibrary::open(m_library->path());
        QHash<qint64, QString> names;
        const QVector<TagRow> allTags = reader->tags().value;
        for (const TagRow& tag : allTags)
            names.insert(tag.id, tag.name);
        const auto visited = reader->forEachFile([&](const FileRow& file) {
            QStringList tags;
            for (const qint64 id : file.tagIds)
                tags.append(names.value(id));
            tags.sort();
            result.insert(file.path.mid(root.size() + 1), tags);
            return true;
        });
        return visited ? result : QMap<QByteArray, QStringList>();
    }

    [[nodiscard]] QMap<QByteArray, QStringList> tags() const { return tags(m_root); }

    /// As the list of files says it.
    [[nodiscard]] int filesAway() const
    {
        int away = 0;
        (void)ReadOnlyLibrary::open(m_library->path())->forEachFile([&away](const FileRow& file) {
            away += file.isAway ? 1 : 0;
            return true;
        });
        return away;
    }

    std::unique_ptr<TestFolder> m_folder;
    QByteArray m_root;
    QTemporaryDir m_libraryFolder;
    std::unique_ptr<Library> m_library;
};

READER_TEST_MAIN(TestImporter)
#include "tst_importer.moc"
