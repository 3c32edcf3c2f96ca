// SPDX-License-Identifier: MIT
#include "host/library/database/librarydatabase.h"
#include "host/library/libraryreader.h"
#include "tests/library/libraryfixture.h"
#include "tests/library/testmigration.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
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

/// Enough rows that each step takes some time.
bool multiply(const QString& path)
{
    const QByteArray upTo = "WITH RECURSIVE n (i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n WHERE i < ";
    return execute(path, upTo + "6000) INSERT INTO tags SELECT i, 'tag ' || i, NULL, i % 8 FROM n;\n" + upTo +
                             "3000) INSERT INTO files SELECT i, CAST('/p/' || i AS BLOB), i, i, NULL, NULL FROM n;\n" +
                             upTo +
                             "6000) INSERT OR IGNORE INTO file_tags SELECT i, 100 + (i * j) % 2900 FROM n,"
                             " (SELECT 1 AS j UNION SELECT 3 UNION SELECT 7);\n");
}

int versionOf(const QString& path)
{
    return LibraryFixture::rowsOf(path, {"PRAGMA user_version"}).value(0).toInt();
}

/// The rows that every version keeps.
QByteArray contentOf(const QString& path)
{
    const QStringList rows = LibraryFixture::rowsOf(
        path, {"SELECT id || hex(name) || ifnull(hex(spelling), '-') || color FROM tags ORDER BY id",
               "SELECT id || hex(name) || ifnull(hex(spelling), '-') FROM categories ORDER BY id",
               "SELECT category_id || '.' || tag_id FROM tag_categories ORDER BY category_id, tag_id",
               "SELECT id || hex(path) || size || modified || ifnull(hex(sidecars), '-') FROM files ORDER BY id",
               "SELECT tag_id || '.' || file_id FROM file_tags ORDER BY tag_id, file_id"});
    return QCryptographicHash::hash(rows.join('\n').toUtf8(), QCryptographicHash::Sha1);
}

}  // namespace

/// Libraries of earlier versions become ones of this version with everything in them, also when that is interrupted.
class TstLibraryMigration : public QObject
{
    Q_OBJECT

private slots:
    void version1IsOpened();
    void killedAtAnyMoment();
};

void TstLibraryMigration::version1IsOpened()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("old");
    QVERIFY(makeVersion1(path));
    LibraryFixture f(path);
    QVERIFY(f.isOpen());
    const QStringList expected = {R"(tag 1 "sea" color 3 files 2)",
                                  QStringLiteral("tag 2 \"cafe\u0301\" color 0 files 0"),
                                  QStringLiteral("tag 4 \"\u6c34\u58a8\u753b\" color 7 files 0"),
                                  QString(QStringLiteral("tag 5 \"a") + QChar(0xd800) + "\" color 1 files 1"),
                                  R"(tag 6 "'); DROP TABLE tags; --"" color 2 files 0)",
                                  "category 0 \"Uncategorized\": 4 5 6",
                                  "category 1 \"Favorite Tags\": 4",
                                  "category 2 \"Places\": 1 2",
                                  "category 4 \"empty\": "};
    QCOMPARE(f.shown(), expected);
    const auto states = LibraryReader::open(path)->fileStates({"/p/a.jpg", "/p/caf\xe9.jpg"});
    QCOMPARE(states.value("/p/a.jpg").content, QByteArray("\1\2"));
    QCOMPARE(states.value("/p/caf\xe9.jpg").sidecars, QByteArray("x.xmp"));
    // Ids of tags that are gone stay unused, and the tables are those of a new library.
    QVERIFY(f.createTags({"new"}));
    QVERIFY(f.tag(10));
    const QString schema = "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL ORDER BY name";
    QCOMPARE(LibraryFixture::rowsOf(path, {schema}), LibraryFixture::rowsOf(LibraryFixture().path(), {schema}));
}

void TstLibraryMigration::killedAtAnyMoment()
{
    const QTemporaryDir folder;
    const QString old = folder.filePath("old");
    QVERIFY(makeVersion1(old) && multiply(old));
    const QByteArray content = contentOf(old);
    const int newest = testmigration::steps().size();
    int duration = 0;  // Milliseconds that the whole way takes.
    QRandomGenerator random(20240229);
    QSet<int> found;
    for (int round = 0; round <= 20; ++round) {
        const QString path = folder.filePath(QString::number(round));
        QVERIFY(QFile::copy(old, path));
        QProcess runner;
        runner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        runner.start(QStringLiteral(COMMAND_RUNNER), {path, "migrate"});
        QTRY_VERIFY(runner.bytesAvailable() > 0);
        QElapsedTimer timer;
        timer.start();
        // The first one is let through.
        runner.waitForFinished(round == 0 ? 60000 : random.bounded(duration));
        duration = round == 0 ? int(timer.elapsed()) + 1 : duration;
        runner.kill();
        runner.waitForFinished();

        const int version = versionOf(path);
        found.insert(version);
        QVERIFY(version >= 1 && version <= newest);
        QVERIFY(round > 0 || version == newest);
        QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
        QCOMPARE(contentOf(path), content);
        LibraryDatabase database(path, LibraryDatabase::Access::ReadWrite);
        libraryschema::migrate(database, testmigration::steps());
        QCOMPARE(database.number("PRAGMA foreign_keys"), 1);
        QCOMPARE(contentOf(path), content);
        const QString tags = " " + QString::number(5906);
        QCOMPARE(LibraryFixture::rowsOf(path, {"SELECT version || ' ' || tags FROM history"}),
                 (QStringList{"2" + tags, "3" + tags, "4" + tags}));
        QCOMPARE(LibraryFixture::integrity(path), QStringLiteral("ok"));
    }
    QVERIFY2(found.size() > 1, "No migration was interrupted");
}

QTEST_GUILESS_MAIN(TstLibraryMigration)

#include "tst_librarymigration.moc"
