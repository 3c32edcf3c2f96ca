// SPDX-License-Identifier: MIT
#include "host/library/database/libraryerror.h"
#include "host/library/database/sqlite/sqlitedatabase.h"
#include "tests/library/diskfault.h"
#include "tests/library/libraryfixture.h"

#include <QFile>
#include <QTest>

#include <future>

namespace {

QVector<ImportedFile> manyPictures()
{
    QVector<ImportedFile> files;
    for (int i = 0; i < 300; ++i)
        files.append({QByteArray::number(i), {1, i, {}}, 1, {}, {{QStringLiteral("key %1").arg(i % 70)}}});
    return files;
}

/// What a computer finds that lost its power: the file and its log, without the memory shared between programs.
bool copyAsAfterPowerLoss(const QString& from, const QString& to)
{
    return QFile::copy(from, to) && QFile::copy(from + QStringLiteral("-wal"), to + QStringLiteral("-wal"));
}

}  // namespace

/// A request that cannot be carried out is answered with the reason, tells nothing else and changes nothing.
class TstLibraryFailures : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_fault = std::make_unique<DiskFault>();
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
        QVERIFY(f->createTags({"one", "two", "three"}));
        QVERIFY(f->createCategories({"left"}));
        f->follow({-1, 0, 1, 2});
        f->takeLog();
    }

    void cleanup()
    {
        m_fault->clear();
        if (f->isOpen())
            QCOMPARE(f->shown(), f->stored());
        f->close();
        QCOMPARE(LibraryFixture::integrity(f->path()), QStringLiteral("ok"));
        f.reset();
        m_fault.reset();
    }

    void unknownAndReservedIdsAreRejected()
    {
        const auto rejects = [this](qint64 request, int tags, int categories) {
            const auto answer = f->answerTo(request);
            QVector<QSharedPointer<const ITagInfo>> rejectedTags;
            QVector<QSharedPointer<const ITagGroupInfo>> rejectedCategories;
            answer->rejectedTags(rejectedTags);
            answer->rejectedGroups(rejectedCategories);
            return answer->status() == int(LibraryStatus::UnknownId) && !answer->message().isEmpty() &&
                   rejectedTags.size() == tags && rejectedCategories.size() == categories;
        };
        QVERIFY(rejects(f->tags()->renameTag(99, "x"), 1, 0));
        QVERIFY(rejects(f->tags()->setTagColor(-1, 1), 1, 0));
        QVERIFY(rejects(f->tags()->deleteTags({1, 98, 99}), 2, 0));
        for (qint64 category : {-1, 0, 3, -2}) {
            QVERIFY(rejects(f->tags()->addTagsToGroups({2, category}, {1}), 0, 1));
            QVERIFY(rejects(f->tags()->removeTagsFromGroups({category}, {1}), 0, 1));
        }
        for (qint64 category : {-1, 0, 1, 3}) {
            QVERIFY(rejects(f->categories()->renameTagGroup(category, "x"), 0, 1));
            QVERIFY(rejects(f->categories()->removeTagGroup(category), 0, 1));
        }
        QCOMPARE(f->takeLog().filter("answer").size(), 19);
    }

    void listsFailAsAWhole()
    {
        const QStringList before = f->shown();
        for (const qint64 request :
             {f->tags()->addTagsToGroups({1, 2}, {1, 99, 2}), f->tags()->createTags({{"four", 0, 0}, {"one", 0, 0}}),
              f->tags()->createTags({{"four", 0, 0}, {"", 0, 0}}),
              f->tags()->createTags({{"four", 0, 0}, {"five", 0, 8}}), f->tags()->createTags({{"four", 7, 0}}),
              f->tags()->setTagColor(1, 8), f->tags()->setTagColor(1, -1)})
            QVERIFY(f->statusOf(request) > 0);
        QCOMPARE(f->takeLog().size(), 7);
        QCOMPARE(f->shown(), before);
    }

    void lockedByAnotherProgram()
    {
        SqliteDatabase otherProgram(f->path(), SqliteDatabase::Access::ReadWrite);
        otherProgram.execute("BEGIN IMMEDIATE");
        // The GUI thread stays free meanwhile.
        const qint64 request = f->tags()->renameTag(1, "x");
        const auto answer = f->answerTo(request);
        QCOMPARE(LibraryFixture::statusOf(answer), int(LibraryStatus::Locked));
        QVERIFY(answer->message().contains("locked"));
        QCOMPARE(f->takeLog(), QStringList{"answer 5"});
        QCOMPARE(f->tag(1)->name(), QStringLiteral("one"));
    }

    /// An import goes on when the lock is free again, and ends when it is cancelled; closing waits for a lock once, not
    /// once for each request.
    void importWaitsForALock()
    {
        const qint64 root = f->library()->addRootAndWait("/p").rootId;
        SqliteDatabase otherProgram(f->path(), SqliteDatabase::Access::ReadWrite);
        otherProgram.execute("BEGIN IMMEDIATE");
        std::atomic_bool cancelled = false;
        const auto import = [&] { return f->library()->importAndWait(root, manyPictures(), &cancelled); };
        auto waiting = std::async(std::launch::async, import);
        // Longer than one attempt to get the lock.
        QCOMPARE(waiting.wait_for(std::chrono::milliseconds(1500)), std::future_status::timeout);
        otherProgram.execute("ROLLBACK");
        QCOMPARE(waiting.get().numbers.filesAdded, 300);
        QTRY_COMPARE(f->group(-1)->tagCount(1), 73);
        otherProgram.execute("BEGIN IMMEDIATE");
        cancelled = true;
        QCOMPARE(import().status, LibraryStatus::Cancelled);
        for (int i = 0; i < 20; ++i)
            f->tags()->setTagColor(1, i % 8);
        f->close();
    }

    /// The disk fails at the first call, at the second, and so on, until a request is carried out before it fails.
    void failingDisk()
    {
        const QVector<QPair<DiskFault::Kind, LibraryStatus>> statusByKind = {
            {DiskFault::Kind::Full, LibraryStatus::DiskFull},
            {DiskFault::Kind::WriteError, LibraryStatus::DiskError},
            {DiskFault::Kind::ShortWrite, LibraryStatus::DiskFull}};
        for (const auto& [kind, status] : statusByKind) {
            bool failedEver = false;
            bool done = false;
            for (int after = 0; !done; ++after) {
                const QStringList before = f->shown();
                const QString name =
                    QStringLiteral("%1 %2 ").arg(int(kind)).arg(after) + QString(9000, QLatin1Char('x'));
                f->takeLog();
                m_fault->set(kind, after);
                const auto answer = f->answerTo(f->tags()->createTags({{name, 0, 0}}));
                done = !m_fault->struck();
                m_fault->clear();
                QVERIFY(answer);
                if (answer->status() != 0) {
                    failedEver = true;
                    QCOMPARE(answer->status(), int(status));
                    QVERIFY(!answer->message().isEmpty());
                    QCOMPARE(f->takeLog().size(), 1);
                    QCOMPARE(f->shown(), before);
                }
                QCOMPARE(f->stored(), f->shown());
                // The library goes on as soon as the disk does.
                QCOMPARE(f->statusOf(f->tags()->setTagColor(1, after % 2 + 1)), 0);
            }
            QVERIFY(failedEver);
        }
    }

    void failedCheckpointLeavesTheTimeout()
    {
        SqliteDatabase database(f->path(), SqliteDatabase::Access::ReadWrite);
        database.beginWriting({});
        database.execute("COMMIT");
        const qint64 before = database.number("PRAGMA busy_timeout");
        m_fault->set(DiskFault::Kind::WriteError);
        QVERIFY_EXCEPTION_THROWN(database.checkpoint(), LibraryError);
        m_fault->clear();
        QVERIFY(before > 0);
        QCOMPARE(database.number("PRAGMA busy_timeout"), before);
    }

    /// A library that is opened, and asked for its files, while the disk fails at the first reading, at the second, and
    /// so on, says so or is right; the next time, it has everything.
    void failingReads()
    {
        QVERIFY(f->import(manyPictures()).succeeded());
        QTRY_COMPARE(f->group(-1)->tagCount(1), 73);
        const QStringList whole = f->shown();
        for (const auto kind : {DiskFault::Kind::ReadError, DiskFault::Kind::ShortRead}) {
            bool failedEver = false;
            bool struck = true;
            for (int after = 0; struck; ++after) {
                f->close();
                m_fault->set(kind, after);
                QString error;
                const auto library = Library::open(f->path(), &error);
                QCOMPARE(error.isEmpty(), library != nullptr);
                if (library) {
                    int files = -1;
                    library->queryFileIds(FileQuery::allFiles(), this, [&](const LibraryAnswer<QVector<qint64>>& ids) {
                        files = ids.value.size();
                        error = ids.error;
                    });
                    QTRY_VERIFY(files >= 0);
                    QVERIFY(files == 300 || !error.isEmpty());
                }
                struck = m_fault->struck();
                m_fault->clear();
                QVERIFY(struck || error.isEmpty());
                failedEver = failedEver || !error.isEmpty();
                QVERIFY(f->reopen());
                QCOMPARE(f->shown(), whole);
            }
            QVERIFY(failedEver);
        }
    }

    /// A disk that claims to have written cannot be seen through; what is found after the power is gone is what the
    /// library held at some earlier moment, whole.
    void lostWritesLeaveAnEarlierState()
    {
        f->close();
        for (int after = 0; after < 12; ++after) {
            LibraryFixture library;
            QStringList states = {library.shown().join('\n')};
            m_fault->set(DiskFault::Kind::LostWrite, after);
            for (int i = 0; i < 5; ++i) {
                QVERIFY(library.answerTo(library.tags()->createTags({{QStringLiteral("tag %1").arg(i), 0, 0}})));
                states.append(library.shown().join('\n'));
            }
            QVERIFY(m_fault->struck());
            const QTemporaryDir folder;
            const QString found = folder.filePath(QStringLiteral("found"));
            QVERIFY(copyAsAfterPowerLoss(library.path(), found));
            m_fault->clear();
            QVERIFY(LibraryFixture::openOnce(found));
            QCOMPARE(LibraryFixture::integrity(found), QStringLiteral("ok"));
            QVERIFY(states.contains(LibraryFixture::storedIn(found).join('\n')));
        }
    }

    void readOnlyLibrary()
    {
        f->close();
        m_fault->set(DiskFault::Kind::ReadOnly);
        // Shows what it holds, though nothing can be changed.
        QVERIFY(f->reopen());
        QCOMPARE(f->group(-1)->tagCount(1), 3);
        const auto answer = f->answerTo(f->tags()->renameTag(1, "x"));
        QCOMPARE(LibraryFixture::statusOf(answer), int(LibraryStatus::ReadOnly));
        QVERIFY(answer->message().contains("read-only"));
        QVERIFY(!f->import({{"a", {}, 1, {}, {}}}).succeeded());
    }

    void readOnlyFolder()
    {
        f->close();
        m_fault->set(DiskFault::Kind::ReadOnlyFolder);
        QVERIFY(f->reopen());
        QCOMPARE(f->group(-1)->tagCount(1), 3);
        QCOMPARE(f->stored(), f->shown());
        QCOMPARE(f->statusOf(f->tags()->renameTag(1, "x")), int(LibraryStatus::ReadOnly));
        QVERIFY(!QFile::exists(f->path() + "-wal"));
    }

    /// What another program left in its log is not passed over in silence.
    void readOnlyFolderWithALog()
    {
        const QTemporaryDir folder;
        const QString copy = folder.filePath("copy");
        QVERIFY(copyAsAfterPowerLoss(f->path(), copy));
        m_fault->set(DiskFault::Kind::ReadOnlyFolder);
        QString error;
        QVERIFY(!Library::open(copy, &error));
        QVERIFY2(error.contains("log"), qPrintable(error));
    }

private:
    std::unique_ptr<DiskFault> m_fault;
    std::unique_ptr<LibraryFixture> f;
};

QTEST_GUILESS_MAIN(TstLibraryFailures)

#include "tst_libraryfailures.moc"
