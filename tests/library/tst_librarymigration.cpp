// SPDX-License-Identifier: MIT
#include "host/library/database/libraryerror.h"
#include "host/library/database/sqlite/sqlitedatabase.h"
#include "host/library/database/sqlite/sqliteschema.h"
#include "host/library/readonlylibrary.h"
#include "host/library/requests/version1keywords.h"
#include "tests/library/libraryfixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

namespace {

bool execute(const QString& path, const QByteArray& script)
{
    QByteArrayList lines = script.split('\n');
    lines.erase(std::remove_if(lines.begin(), lines.end(), [](const QByteArray& l) { return l.startsWith("--"); }),
                lines.end());
    const QStringList statements = QString::fromUtf8(lines.join('\n')).split(";\n", Qt::SkipEmptyParts);
    return LibraryFixture::rowsOf(path, statements).filter("failed: ").isEmpty();
}

bool makeVersion1(const QString& path)
{
    QFile script(VERSION1_SCRIPT);
    return script.open(QIODevice::ReadOnly) && execute(path, script.readAll());
}

/// What the settling tests are about: tags that version 1 made from keywords and a person changed afterwards, and the
/// files that it filed, each with the hash of its keywords.
struct Version1File
{
    QByteArray name;
    QVector<QString> keywords;
    QVector<int> tags;
};

bool makeVersion1(const QString& path, const QStringList& tags, const QVector<Version1File>& files)
{
    if (!makeVersion1(path))
        return false;
    QByteArray script = "DELETE FROM file_tags;\nDELETE FROM files;\nDELETE FROM tag_categories;\nDELETE FROM tags;\n";
    for (int i = 0; i < tags.size(); ++i) {
        if (!tags.at(i).isEmpty())
            script +=
                QStringLiteral("INSERT INTO tags VALUES (%1, '%2', NULL, 0);\n").arg(i + 1).arg(tags.at(i)).toUtf8();
    }
    for (int i = 0; i < files.size(); ++i) {
        const QByteArray id = QByteArray::number(i + 1);
        script += "INSERT INTO files VALUES (" + id + ", CAST('/p/" + files.at(i).name + "' AS BLOB), 1, 1, NULL, x'" +
                  version1keywords::hashOf(files.at(i).keywords).toHex() + "');\n";
        for (int tag : files.at(i).tags)
            script += "INSERT INTO file_tags VALUES (" + QByteArray::number(tag) + ", " + id + ");\n";
    }
    return execute(path, script);
}

}  // namespace

/// Libraries of earlier versions become ones of this version with everything in them, also when that is interrupted.
class TstLibraryMigration : public QObject
{
    Q_OBJECT

private slots:
    void version1IsOpened()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("old");
        QVERIFY(makeVersion1(path));
        const LibraryFixture fresh;
        // Whoever opens it first, the person is told.
        QVERIFY(ReadOnlyLibrary::open(path));
        LibraryFixture f(path);
        QVERIFY(f.isOpen());
        const QStringList expected = {R"(tag 1 "sea" color 3 files 2)",
                                      QStringLiteral("tag 2 \"cafe\u0301\" color 0 files 0"),
                                      QStringLiteral("tag 4 \"\u6c34\u58a8\u753b\" color 7 files 0"),
                                      QStringLiteral("tag 5 \"a\ufffd\" color 1 files 1"),
                                      QStringLiteral("tag 6 %1'); DROP TABLE tags; --%1%1 color 2 files 0").arg('"'),
                                      "category 0 \"Unsorted\": 4 5 6",
                                      "category 1 \"Favorite Tags\": 4",
                                      "category 2 \"Places\": 1 2",
                                      "category 4 \"empty\": "};
        QCOMPARE(f.shown(), expected);
        QCOMPARE(f.stored(), expected);
        const QStringList notes = f.library()->takeUpgradeNotices();
        QCOMPARE(notes.size(), 1);
        QVERIFY(notes.first().contains(QStringLiteral("a\ufffd")));
        QCOMPARE(f.library()->takeUpgradeNotices(), QStringList());
        const auto reader = ReadOnlyLibrary::open(path);
        const auto states = f.knownFiles(1);
        QCOMPARE(states.value("a.jpg").state.size, 100);
        QCOMPARE(states.value("a.jpg").readerVersion, 0);
        QCOMPARE(states.value("caf\xe9.jpg").state.sidecars, QByteArray("x.xmp"));
        QCOMPARE(reader->files({2}).value.first().path, QByteArray("/p/caf\xe9.jpg"));
        // Ids of tags that are gone stay unused, and the tables are those of a new library.
        QVERIFY(f.createTags({"new"}));
        QVERIFY(f.tag(10));
        const QString schema = "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL ORDER BY name";
        QCOMPARE(LibraryFixture::rowsOf(path, {schema}), LibraryFixture::rowsOf(fresh.path(), {schema}));
        QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
        QCOMPARE(LibraryFixture::rowsOf(path + ".v1.bak", {"PRAGMA user_version", "SELECT count(*) FROM files"}),
                 (QStringList{"1", "2"}));
    }

    void copyIsNeverWrittenOver()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("old");
        QVERIFY(makeVersion1(path));
        QVERIFY(QFile::copy(VERSION1_SCRIPT, path + ".v1.bak"));
        // Without its references the library is damaged: it stays as it is, and no copy is left of the attempt.
        const QString broken = folder.filePath("broken");
        QVERIFY(QFile::copy(path, broken));
        QVERIFY(execute(broken, "INSERT INTO file_tags VALUES (77, 1);\n"));
        QString error;
        QVERIFY(!Library::open(broken, &error));
        QVERIFY2(error.contains("damaged"), qPrintable(error));
        QCOMPARE(LibraryFixture::rowsOf(broken, {"PRAGMA user_version"}), QStringList{"1"});
        QCOMPARE(QDir(folder.path()).entryList({"broken*.bak*"}), QStringList());
        QVERIFY(LibraryFixture::openOnce(path));
        QVERIFY(QFile(path + ".v1.bak").size() == QFile(VERSION1_SCRIPT).size());
        QCOMPARE(LibraryFixture::rowsOf(path + ".v1.bak.2", {"PRAGMA user_version"}), QStringList{"1"});
    }

    /// Another program may have taken the step while this one waited for the lock.
    void stepIsTakenOnce()
    {
        LibraryFixture f;
        QVERIFY(f.createTags({"one"}));
        SqliteDatabase database(f.path(), SqliteDatabase::Access::ReadWrite);
        QVERIFY(
            !sqliteschema::takeStep(database, 1, [](LibraryDatabase& inside) { inside.execute("DELETE FROM tags"); }));
        QCOMPARE(database.number("SELECT count(*) FROM tags"), 1);
        const auto breaking = [](LibraryDatabase& inside) {
            inside.execute("INSERT INTO tag_categories VALUES (1, 77)");
        };
        QVERIFY_EXCEPTION_THROWN(sqliteschema::takeStep(database, 2, breaking), LibraryError);
        QCOMPARE(database.number("PRAGMA user_version"), 2);
        QCOMPARE(database.number("PRAGMA foreign_keys"), 1);
    }

    void killedAtAnyWrite()
    {
        const QTemporaryDir folder;
        const QString old = folder.filePath("old");
        QVERIFY(makeVersion1(old));
        bool isKilled = true;
        int ofVersion1 = 0;
        QStringList expected;
        {
            const QString whole = folder.filePath("whole");
            QVERIFY(QFile::copy(old, whole));
            QVERIFY(LibraryFixture::openOnce(whole));
            expected = LibraryFixture::storedIn(whole);
        }
        for (int write = 0; isKilled; ++write) {
            const QString path = folder.filePath(QString::number(write));
            QVERIFY(QFile::copy(old, path));
            QProcess runner;
            runner.setProcessChannelMode(QProcess::ForwardedChannels);
            runner.start(QStringLiteral(COMMAND_RUNNER), {path, "0", QString::number(write)});
            QVERIFY(runner.waitForFinished(60000));
            isKilled = runner.exitStatus() == QProcess::CrashExit;
            QVERIFY(isKilled || runner.exitCode() == 0);
            const QString version = LibraryFixture::rowsOf(path, {"PRAGMA user_version"}).value(0);
            QVERIFY(version == "1" || version == "2");
            ofVersion1 += version == "1";
            // A copy that has its name is whole.
            if (version == "2" || QFile::exists(path + ".v1.bak"))
                QCOMPARE(LibraryFixture::integrity(path + ".v1.bak"), QStringLiteral("ok"));
            QVERIFY(LibraryFixture::openOnce(path));
            QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
            QCOMPARE(LibraryFixture::storedIn(path), expected);
        }
        QVERIFY(ofVersion1 > 5);
    }

    void keywordsAreExplained_data()
    {
        QTest::addColumn<QStringList>("tags");
        QTest::addColumn<QVector<QString>>("keywords");
        QTest::addColumn<QString>("ignored");
        QTest::addColumn<QStringList>("namesOfNewFile");
        // The files of version 1: "both" has the keywords A and B and the tags 1 and 2, "a" and "b" one of each.
        const auto row = [](const char* name, const QStringList& tags, const QStringList& namesOfNewFile,
                            const QString& ignored = {}) {
            QTest::newRow(name) << tags << QVector<QString>{"A", "B"} << ignored << namesOfNewFile;
        };
        row("as they were", {"A", "B"}, {"A", "B"});
        row("renamed", {"A", "X"}, {"A", "X"});
        row("both renamed", {"X", "Y"}, {"X", "Y"});
        row("swapped", {"B", "A"}, {"A", "B"});
        row("swapped, one of them on no other file", {"B", "A"}, {"A", "B"});
        row("deleted", {"A", ""}, {"A"}, "B");
    }

    void keywordsAreExplained()
    {
        QFETCH(const QStringList, tags);
        QFETCH(const QVector<QString>, keywords);
        QFETCH(const QString, ignored);
        QFETCH(const QStringList, namesOfNewFile);
        const auto present = [&](QVector<int> ids) {
            ids.erase(std::remove_if(ids.begin(), ids.end(), [&](int id) { return tags.at(id - 1).isEmpty(); }),
                      ids.end());
            return ids;
        };
        const QTemporaryDir folder;
        const QString path = folder.filePath("old");
        QVector<Version1File> files = {
            {"both", {"A", "B"}, present({1, 2})}, {"b", {"B"}, present({2})}, {"a", {"A"}, present({1})}};
        if (QByteArray(QTest::currentDataTag()).contains("no other file"))
            files.removeLast();
        QVERIFY(makeVersion1(path, tags, files));
        LibraryFixture f(path);
        const QStringList before = f.shown();
        const auto file = [](const QByteArray& name, const QVector<QString>& words) {
            return ImportedFile{name, {1, 1, {}}, 1, {}, words};
        };
        QVector<ImportedFile> readAgain;
        for (const Version1File& old : files)
            readAgain.append(file(old.name, old.keywords));
        QVERIFY(f.import(readAgain).succeeded());
        QVERIFY(f.library()->settleAndWait().succeeded());
        f.statusOf(f.tags()->deleteTags({}));
        QCOMPARE(f.shown(), before);
        QStringList found;
        const QVector<KeywordRow> rows = ReadOnlyLibrary::open(path)->keywordsIgnored().value;
        for (const KeywordRow& row : rows)
            found.append(row.isUndecided ? "undecided" : row.name);
        QCOMPARE(found.join(' '), ignored);
        // From now on files are filed so.
        QVERIFY(f.import({file("new", keywords), file("other", {"C"})}).succeeded());
        f.statusOf(f.tags()->deleteTags({}));
        QStringList names;
        for (const QString& tag : tags) {
            const auto provider = f.group(-1)->tagByName(tag);
            const int had = before.filter('"' + tag + '"').value(0).section(' ', -1).toInt();
            if (provider && provider->fileCount(1) > had)
                names.append(tag);
        }
        names.sort();
        QCOMPARE(names, namesOfNewFile);
        QVERIFY(f.group(-1)->tagByName("C"));
        QCOMPARE(f.shown(), f.stored());
        QCOMPARE(LibraryFixture::rowsOf(path, {"SELECT count(*) FROM decisions"}), QStringList{"0"});
    }

    /// Folder by folder: what a new picture's keyword was taken for is put right by the older ones, as far as no person
    /// said otherwise, and files have the tags of their keywords and decisions all the time.
    void filesAreReadInParts()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("old");
        QVERIFY(makeVersion1(
            path, {"Tiergarten", "Mond", "Gone"},
            {{"b/z", {"Zoo"}, {1}}, {"b/m", {"Moon"}, {2}}, {"b/s", {"Sea"}, {}}, {"c/gone", {"Gone"}, {3}}}));
        LibraryFixture f(path);
        const auto import = [&](const QVector<QPair<QByteArray, QString>>& files) {
            QVector<ImportedFile> read;
            for (const auto& [name, keyword] : files)
                read.append({name, {1, 1, {}}, 1, {}, {{keyword}}});
            QVERIFY(f.import(read).succeeded());
            QVERIFY(f.library()->settleAndWait().succeeded());
            f.statusOf(f.tags()->deleteTags({}));
            const QString wanted = "SELECT keywords.tag_id, file_id FROM file_keywords JOIN keywords ON keywords.id ="
                                   " keyword_id WHERE tag_id IS NOT NULL UNION SELECT tag_id, file_id FROM decisions";
            const QString present = "SELECT tag_id, file_id FROM file_tags JOIN files ON id = file_id WHERE reader > 0";
            QCOMPARE(
                LibraryFixture::rowsOf(path, {"SELECT * FROM (" + wanted + ") EXCEPT " + present,
                                              "SELECT * FROM (" + present + ") EXCEPT SELECT * FROM (" + wanted + ")"}),
                QStringList());
            QCOMPARE(f.shown(), f.stored());
        };
        import({{"a/z", "Zoo"}, {"a/m", "Moon"}, { "a/s", "Sea" }});
        QCOMPARE(f.group(-1)->tagByName("Zoo")->fileCount(1), 1);
        QCOMPARE(f.statusOf(f.tags()->renameTag(f.group(-1)->tagByName("Moon")->tagInfo()->id(), "Luna")), 0);
        import({{"b/z", "Zoo"}, {"b/m", "Moon"}, { "b/s", "Sea" }});
        QVERIFY(!f.group(-1)->tagByName("Zoo"));
        QCOMPARE(f.tag(1)->fileCount(1), 2);
        QCOMPARE(f.tag(2)->fileCount(1), 1);
        QCOMPARE(f.group(-1)->tagByName("Luna")->fileCount(1), 2);
        QCOMPARE(f.group(-1)->tagByName("Sea")->fileCount(1), 2);
        QCOMPARE(LibraryFixture::rowsOf(path, {"SELECT count(*) FROM decisions"}), QStringList{"1"});
        // A file that is never read again holds nothing up.
        import({{ "a/new", "fresh" }});
        QCOMPARE(f.group(-1)->tagByName("fresh")->fileCount(1), 1);
    }

    /// As when a person does so today: the tag takes the ignored keyword of its new name.
    void renamedToTheNameOfADeletedTag()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("old");
        QVERIFY(makeVersion1(path, {"B"}, {{"a", {"A"}, {1}}, {"b", {"B"}, {}}}));
        LibraryFixture f(path);
        QVERIFY(f.import({{"a", {1, 1, {}}, 1, {}, {{"A"}}}, {"b", {1, 1, {}}, 1, {}, {{"B"}}}}).succeeded());
        QVERIFY(f.library()->settleAndWait().succeeded());
        f.statusOf(f.tags()->deleteTags({}));
        QCOMPARE(f.tag(1)->fileCount(1), 2);
        QCOMPARE(f.shown(), f.stored());
        QCOMPARE(ReadOnlyLibrary::open(path)->keywordsIgnored().value.size(), 0);
    }

    /// Two keywords of the same files, two tags that are called otherwise: nobody knows which is which.
    void ambiguousKeywordsAreListed()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("old");
        QVERIFY(makeVersion1(path, {"X", "Y"}, {{"one", {"A", "B"}, {1, 2}}, {"changed", {"old"}, {}}}));
        LibraryFixture f(path);
        const QStringList before = f.shown();
        QVERIFY(f.import({{"one", {1, 1, {}}, 1, {}, {{"A", "B"}}}, {"changed", {2, 2, {}}, 1, {}, {{"fresh"}}}})
                    .succeeded());
        QVERIFY(f.library()->settleAndWait().succeeded());
        f.statusOf(f.tags()->deleteTags({}));
        const auto listed = ReadOnlyLibrary::open(path)->keywordsIgnored().value;
        QCOMPARE(listed.size(), 2);
        QVERIFY(listed.first().isUndecided && listed.last().isUndecided);
        QCOMPARE(f.shown().mid(0, 2), before.mid(0, 2));
        QCOMPARE(f.group(-1)->tagByName("fresh")->fileCount(1), 1);
        QCOMPARE(LibraryFixture::rowsOf(path, {"SELECT count(*) FROM decisions WHERE sign = 1"}), QStringList{"2"});
        // The tags stay on the file when it is read again, and a person may give one of the keywords a tag.
        QVERIFY(f.import({{"one", {3, 3, {}}, 1, {}, {{"A", "B", "more"}}}}).succeeded());
        QVERIFY(f.createTags({"A"}));
        QCOMPARE(f.group(-1)->tagByName("A")->fileCount(1), 1);
        QCOMPARE(f.tag(1)->fileCount(1), 1);
        QCOMPARE(f.shown(), f.stored());
    }
};

QTEST_GUILESS_MAIN(TstLibraryMigration)

#include "tst_librarymigration.moc"
