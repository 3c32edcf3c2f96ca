// SPDX-License-Identifier: MIT
#include "host/library/database/libraryerror.h"
#include "host/library/database/sqlite/sqlitedatabase.h"
#include "host/library/database/sqlite/sqliteschema.h"
#include "host/library/readonlylibrary.h"
#include "tests/library/libraryfixture.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Brings the log into the file, as another program may at any moment.
void checkpoint(const QString& path)
{
    QCOMPARE(LibraryFixture::rowsOf(path, {"PRAGMA wal_checkpoint(TRUNCATE)"}), QStringList("0"));
}

}  // namespace

/// Which files are opened as a library, which are refused, and what happens to the file.
class TstLibraryFile : public QObject
{
    Q_OBJECT

private slots:
    void createdForTheOwnerAlone()
    {
        const mode_t before = ::umask(0);
        LibraryFixture f;
        QVERIFY(f.createTags({"one"}));
        ::umask(before);
        for (const char* suffix : {"", "-wal", "-shm"}) {
            struct stat status
            {
            };
            QCOMPARE(::stat(QFile::encodeName(f.path() + suffix).constData(), &status), 0);
            QCOMPARE(int(status.st_mode & 0777), 0600);
        }
    }

    void durableSettings()
    {
        LibraryFixture f;
        SqliteDatabase database(f.path(), SqliteDatabase::Access::ReadWrite);
        QCOMPARE(database.number("PRAGMA foreign_keys"), 1);
        QCOMPARE(database.number("PRAGMA synchronous"), 2);
        QCOMPARE(database.number("PRAGMA busy_timeout"), 5000);
        QCOMPARE(database.number("PRAGMA trusted_schema"), 0);
        QCOMPARE(database.number("SELECT journal_mode = 'wal' FROM pragma_journal_mode"), 1);
        QCOMPARE(database.number("PRAGMA user_version"), qint64(sqliteschema::currentVersion));
        QCOMPARE(quint32(database.number("PRAGMA application_id")), sqliteschema::applicationId);
    }

    void refusedFilesStayAsTheyAre_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("statements");
        QTest::addColumn<QString>("reason");
        QTest::newRow("text") << QByteArray("Dear diary") << QStringList() << "no database";
        QTest::newRow("long text") << QByteArray(5000, 'x') << QStringList() << "no database";
        QTest::newRow("nearly a database") << QByteArray("SQLite format 3\0", 16) << QStringList() << "no database";
        QTest::newRow("another program's")
            << QByteArray() << QStringList{"CREATE TABLE tags (id)"} << "another program";
        QTest::newRow("newer")
            << QByteArray()
            << QStringList{QStringLiteral("PRAGMA application_id = %1").arg(sqliteschema::applicationId),
                           "PRAGMA user_version = 99", "CREATE TABLE tags (other)"}
            << "newer";
        QTest::newRow("negative version")
            << QByteArray()
            << QStringList{QStringLiteral("PRAGMA application_id = %1").arg(sqliteschema::applicationId),
                           "PRAGMA user_version = -1", "CREATE TABLE tags (other)"}
            << "damaged";
    }

    void refusedFilesStayAsTheyAre()
    {
        QFETCH(const QByteArray, content);
        QFETCH(const QStringList, statements);
        QFETCH(const QString, reason);
        const QTemporaryDir folder;
        const QString path = folder.filePath("file");
        QVERIFY(write(path, content));
        QCOMPARE(LibraryFixture::rowsOf(path, statements), QStringList());
        const QByteArray before = bytesOf(path);
        QString error;
        QVERIFY(!Library::open(path, &error));
        QVERIFY2(error.contains(reason), qPrintable(error));
        QVERIFY(!ReadOnlyLibrary::open(path, &error));
        QVERIFY2(error.contains(reason), qPrintable(error));
        QCOMPARE(bytesOf(path), before);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }

    void newerVersionInTheLogIsRefused()
    {
        LibraryFixture f;
        QVERIFY(f.createTags({"one"}));
        SqliteDatabase newer(f.path(), SqliteDatabase::Access::ReadWrite);
        newer.execute("PRAGMA user_version = 99");
        f.close();
        // As if that program had been killed: the new version is in the log only.
        const QTemporaryDir folder;
        const QString copy = folder.filePath("copy");
        for (const char* suffix : {"", "-wal"})
            QVERIFY(QFile::copy(f.path() + suffix, copy + suffix));
        const QByteArray before = bytesOf(copy);
        const QByteArray logBefore = bytesOf(copy + "-wal");
        QString error;
        QVERIFY(!Library::open(copy, &error));
        QVERIFY2(error.contains("newer"), qPrintable(error));
        QCOMPARE(bytesOf(copy), before);
        QCOMPARE(bytesOf(copy + "-wal"), logBefore);
    }

    void whereNoFileCanBe()
    {
        const QTemporaryDir folder;
        QString error;
        QVERIFY(!Library::open(folder.path(), &error));
        QVERIFY2(error.contains("folder"), qPrintable(error));
        QVERIFY(!Library::open(folder.filePath("none/library"), &error));
        QVERIFY2(error.contains("No such file"), qPrintable(error));
        QVERIFY(QFile::link(folder.filePath("none/target"), folder.filePath("link")));
        QVERIFY(!Library::open(folder.filePath("link"), &error));
        QVERIFY(!ReadOnlyLibrary::open(folder.filePath("never"), &error));
        QVERIFY(!QFile::exists(folder.filePath("never")));
    }

    /// A view that never ends, in the place of a table, and a trigger are refused before anything is read.
    void otherTablesAreRefused()
    {
        for (const QStringList& statements :
             {QStringList{"DROP TABLE decisions", "CREATE VIEW decisions AS WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL"
                                                  " SELECT i + 1 FROM n) SELECT i AS file_id FROM n"},
              QStringList{"CREATE TRIGGER t AFTER INSERT ON tags BEGIN DELETE FROM tags; END"},
              QStringList{"DROP INDEX tags_by_name"}}) {
            LibraryFixture f;
            f.close();
            QCOMPARE(LibraryFixture::rowsOf(f.path(), statements), QStringList());
            QString error;
            QVERIFY(!Library::open(f.path(), &error));
            QVERIFY2(error.contains("tables"), qPrintable(error));
            QVERIFY(!ReadOnlyLibrary::open(f.path(), &error));
        }
    }

    /// The log is beside the file, not beside a link to it.
    void openedThroughALink()
    {
        LibraryFixture f;
        QVERIFY(f.createTags({"in the log"}));
        const QTemporaryDir folder;
        const QString link = folder.filePath("link");
        QVERIFY(QFile::link(f.path(), link));
        QCOMPARE(LibraryFixture::storedIn(link), f.stored());
        LibraryFixture linked(link);
        QVERIFY(linked.createTags({"through the link"}));
        QCOMPARE(linked.library()->path(), f.library()->path());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }

    /// Nothing is said to be done that is not in the file of that name.
    void fileThatWasMovedRefusesRequests()
    {
        for (const bool isReplaced : {false, true}) {
            LibraryFixture f;
            QVERIFY(f.createTags({"one"}));
            QVERIFY(QFile::rename(f.path(), f.path() + ".moved"));
            if (isReplaced)
                QVERIFY(write(f.path(), "another file"));
            QCOMPARE(f.statusOf(f.tags()->renameTag(1, "two")), int(LibraryStatus::Moved));
            QCOMPARE(f.import({{"a", {}, 1, {}, {{"new"}}}}).status, LibraryStatus::Moved);
            QCOMPARE(f.tag(1)->name(), QStringLiteral("one"));
            f.close();
            QCOMPARE(QFileInfo::exists(f.path()), isReplaced);
        }
    }

    /// What was committed before goes into the file that was moved, and the one in its place stays as it is.
    void fileInThePlaceOfAnotherStaysWhole()
    {
        LibraryFixture other;
        QVERIFY(other.createTags({"kept"}));
        other.close();
        LibraryFixture f;
        QVERIFY(f.createTags({"one"}));
        QVERIFY(QFileInfo(f.path() + "-wal").size() > 0);
        QVERIFY(QFile::rename(f.path(), f.path() + ".moved"));
        QVERIFY(QFile::rename(other.path(), f.path()));
        QCOMPARE(f.statusOf(f.tags()->renameTag(1, "two")), int(LibraryStatus::Moved));
        f.close();
        QCOMPARE(LibraryFixture::integrity(f.path()), QStringLiteral("ok"));
        QVERIFY(LibraryFixture::storedIn(f.path()).join(' ').contains("kept"));
        QVERIFY(LibraryFixture::storedIn(f.path() + ".moved").join(' ').contains("one"));
    }

    /// A backup of the same library, or another library, that is copied over the file is not taken for it.
    void fileThatWasWrittenOverRefusesRequests()
    {
        for (const bool isBackup : {false, true}) {
            LibraryFixture f;
            QVERIFY(f.createTags({"one"}));
            checkpoint(f.path());
            LibraryFixture other;
            other.close();
            const QByteArray content = bytesOf(isBackup ? f.path() : other.path());
            QVERIFY(f.createTags({"two"}));
            checkpoint(f.path());
            // What other programs do with the file is no reason to refuse.
            QCOMPARE(f.statusOf(f.tags()->setTagColor(1, 1)), 0);
            checkpoint(f.path());
            QVERIFY(write(f.path(), content));
            QCOMPARE(f.statusOf(f.tags()->renameTag(1, "three")), int(LibraryStatus::Moved));
            QCOMPARE(f.statusOf(f.tags()->renameTag(1, "three")), int(LibraryStatus::Moved));
            f.close();
            QCOMPARE(bytesOf(f.path()), content);
        }
    }

    /// Reading what another program cut off the shared memory ends a program at once.
    void sharedMemoryThatWasCutIsMadeAnew()
    {
        LibraryFixture f;
        QVERIFY(f.createTags({"one"}));
        const auto reader = ReadOnlyLibrary::open(f.path());
        QCOMPARE(reader->tags().value.size(), 1);
        for (const int size : {0, 4096}) {
            QVERIFY(QFile::resize(f.path() + "-shm", size));
            QCOMPARE(f.statusOf(f.tags()->setTagColor(1, size == 0 ? 1 : 2)), 0);
            QVERIFY(QFile::resize(f.path() + "-shm", size));
            QCOMPARE(reader->tags().value.first().colorIndex, size == 0 ? 1 : 2);
        }
        f.close();
        QCOMPARE(LibraryFixture::integrity(f.path()), QStringLiteral("ok"));
    }

    /// A log left beside the file would be added to a backup that is put in the file's place.
    void logIsEmptiedWhenThereIsNothingToDo()
    {
        LibraryFixture f;
        QVERIFY(f.createTags({"one"}));
        QVERIFY(QFileInfo(f.path() + "-wal").size() > 0);
        QTRY_COMPARE_WITH_TIMEOUT(QFileInfo(f.path() + "-wal").size(), 0, 60000);
    }

    void creationThatWasInterrupted()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("library %1 ;\u6c34?mode=memory#");
        QVERIFY(write(path, {}));
        QVERIFY(ReadOnlyLibrary::open(path));
        QVERIFY(bytesOf(path).size() > 0);
        QCOMPARE(LibraryFixture::storedIn(path).size(), 2);
    }

    void damagedLibraryIsReported()
    {
        LibraryFixture f;
        QStringList names;
        for (int i = 0; i < 500; ++i)
            names.append(QStringLiteral("tag %1").arg(i));
        QVERIFY(f.createTags(names));
        f.close();
        QByteArray bytes = bytesOf(f.path());
        const int header = 100;
        std::fill(bytes.begin() + header, bytes.end(), '\x5a');
        QVERIFY(write(f.path(), bytes));
        QString error;
        QVERIFY(!Library::open(f.path(), &error));
        QVERIFY(!error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TstLibraryFile)

#include "tst_libraryfile.moc"
