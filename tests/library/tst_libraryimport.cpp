// SPDX-License-Identifier: MIT
#include "host/library/libraryreader.h"
#include "host/library/records/tagpalette.h"
#include "tests/library/libraryfixture.h"

#include <QSignalSpy>
#include <QTest>

#include <thread>

namespace {

ImportedFile picture(const QByteArray& path, const QVector<QString>& keywords, qint64 modified = 1,
                     const QByteArray& content = {})
{
    return {path, {100, modified, {}, content}, keywords};
}

}  // namespace

/// Batches of files: what they write and tell, and what they leave alone.
class TstLibraryImport : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
    }

    void cleanup()
    {
        QCOMPARE(f->shown(), f->stored());
        f->close();
        QCOMPARE(LibraryFixture::integrity(f->path()), QStringLiteral("ok"));
    }

    void batchCreatesTagsFilesAndLinks()
    {
        QVERIFY(f->createTags({"sea"}));
        f->follow({-1, 0});
        f->takeLog();
        QSignalSpy files(f->library(), &Library::filesChanged);
        const ImportOutcome outcome = import(
            {picture("/p/a.jpg", {"sea", "sky", " sea ", ""}), picture("/p/b.jpg", {"sky"}), picture("/p/c.jpg", {})});
        QVERIFY(outcome.succeeded);
        QCOMPARE(outcome.filesAdded, 3);
        QCOMPARE(outcome.tagsCreated, 1);
        QCOMPARE(outcome.linksAdded, 3);
        QCOMPARE(f->takeLog(),
                 (QStringList{"updated tag 1", "add -1: 2", "updated category -1", "add 0: 2", "updated category 0"}));
        QCOMPARE(files.count(), 1);
        QCOMPARE(f->tag(1)->fileCount(1), 1);
        QCOMPARE(f->tag(2)->fileCount(1), 2);
        QCOMPARE(f->tag(2)->tagInfo()->colorIndex(), TagPalette::indexForName("sky"));
    }

    void touchedFileKeepsRenamedTags()
    {
        QVERIFY(import({picture("/p/a.jpg", {"sea"}, 1, "hash"), picture("/p/b.jpg", {"sea"}, 1, "hash")}).succeeded);
        QCOMPARE(f->statusOf(f->tags()->renameTag(1, "ocean")), 0);
        QVERIFY(import({picture("/p/a.jpg", {"sea"}, 2, "hash")}).succeeded);
        ImportedFile touched = picture("/p/b.jpg", {}, 2);
        touched.keywords.reset();
        QVERIFY(import({touched}).succeeded);
        QCOMPARE(f->tag(1)->fileCount(1), 2);
        QCOMPARE(f->group(-1)->tagCount(1), 1);
        // A file with other content or another sidecar is filed by its keywords, whatever the tags were renamed to.
        QVERIFY(import({picture("/p/a.jpg", {"sea"}, 3, "other")}).succeeded);
        QCOMPARE(f->tag(1)->fileCount(1), 1);
        QCOMPARE(f->group(-1)->tagByName("sea")->fileCount(1), 1);
        ImportedFile withSidecar = picture("/p/a.jpg", {"sea", "new"}, 3, "other");
        withSidecar.state.sidecars = "a.xmp";
        QCOMPARE(import({withSidecar}).linksAdded, 1);
    }

    void deletedTagLeavesTheFiles()
    {
        QVERIFY(import({picture("/p/a.jpg", {"sea", "sky"})}).succeeded);
        QSignalSpy changed(f->library(), &Library::filesChanged);
        QCOMPARE(f->statusOf(f->tags()->deleteTags({1})), 0);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(LibraryReader::open(f->path())->totals().links, 1);
        QCOMPARE(pathsOf(FileQuery::ofTags({2})), QByteArrayList{"/p/a.jpg"});
        // Its keyword does not come back with a file that did not change.
        QVERIFY(import({picture("/p/a.jpg", {"sea", "sky"})}).succeeded);
        QVERIFY(!f->group(-1)->tagByName("sea"));
        // The tags stay when the file is forgotten.
        const ImportOutcome forgotten = f->library()->forgetAndWait({"/p/a.jpg", "/p/never.jpg"});
        QCOMPARE(forgotten.filesRemoved, 1);
        QCOMPARE(forgotten.linksRemoved, 1);
        QTRY_COMPARE(f->tag(2)->fileCount(1), 0);
    }

    void queriesForTheFileView()
    {
        QVERIFY(import({picture("/q/z.jpg", {"sea"}), picture("/p/b.jpg", {"sea", "sky"}),
                        picture("/p/a.jpg", {"night"}), picture("/p/plain.jpg", {}), picture("/pq.jpg", {})})
                    .succeeded);
        QVERIFY(f->createCategories({"left", "empty"}));
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({2}, {1, 2})), 0);
        QCOMPARE(pathsOf(FileQuery::allFiles()).size(), 5);
        QCOMPARE(pathsOf(FileQuery::ofTags({1, 2, 99})), (QByteArrayList{"/p/b.jpg", "/q/z.jpg"}));
        QCOMPARE(pathsOf(FileQuery::ofTags({})), QByteArrayList());
        QCOMPARE(pathsOf(FileQuery::ofCategories({2})), (QByteArrayList{"/p/b.jpg", "/q/z.jpg"}));
        QCOMPARE(pathsOf(FileQuery::ofCategories({3, 77})), QByteArrayList());
        QCOMPARE(pathsOf(FileQuery::ofCategories({0})), QByteArrayList{"/p/a.jpg"});
        QCOMPARE(pathsOf(FileQuery::ofCategories({-1})), (QByteArrayList{"/p/a.jpg", "/p/b.jpg", "/q/z.jpg"}));

        const auto reader = LibraryReader::open(f->path());
        QCOMPARE(reader->pathsBelow("/p", {}, 2), (QVector<QByteArray>{"/p/a.jpg", "/p/b.jpg"}));
        QCOMPARE(reader->pathsBelow("/p/", "/p/b.jpg", 2), (QVector<QByteArray>{"/p/plain.jpg"}));
        QCOMPARE(reader->pathsBelow("/", {}, 10).size(), 5);
        QStringList listed;
        reader->forEachFile([&](const FileRow& file) {
            listed.append(QString::fromUtf8(file.path) + QLatin1Char(' ') + QString::number(file.tagIds.size()));
            return listed.size() < 2;
        });
        QCOMPARE(listed, (QStringList{"/p/a.jpg 1", "/p/b.jpg 2"}));
    }

    void largeBatchIsToldInPieces()
    {
        QVector<ImportedFile> files;
        for (int i = 0; i < 3000; ++i)
            files.append(picture("/p/" + QByteArray::number(i), {QStringLiteral("tag %1").arg(i % 2500), "common"}));
        const auto all = f->group(-1);
        QSignalSpy added(all.data(), &ITagGroupDataProvider::signalAddTags);
        QCOMPARE(import(files).tagsCreated, 2501);
        // Few signals, and none so large that a window needs long to follow it.
        QCOMPARE(added.count(), 13);
        QSet<qint64> told;
        for (const QList<QVariant>& signal : qAsConst(added)) {
            const auto ids = signal.first().value<QVector<qint64>>();
            QVERIFY(ids.size() <= 200);
            told += QSet<qint64>(ids.cbegin(), ids.cend());
        }
        QCOMPARE(told.size(), 2501);
        QCOMPARE(all->tagByName("common")->fileCount(1), 3000);
        // So many tags are looked for in another way than a few.
        QCOMPARE(pathsOf(FileQuery::ofCategories({0})).size(), 3000);
        QCOMPARE(pathsOf(FileQuery::allFiles()), pathsOf(FileQuery::ofCategories({-1})));
    }

    void waitingWorksWithoutAnEventLoopAndFromAnyThread()
    {
        QCOMPARE(f->library()->importAndWait({picture("/p/a.jpg", {"sea"})}).filesAdded, 1);
        std::thread other([this] {
            for (int i = 0; i < 10; ++i)
                f->library()->importAndWait({picture("/t/" + QByteArray::number(i), {"sea"})});
        });
        other.join();
        QCOMPARE(LibraryReader::open(f->path())->totals().files, 11);
        QTRY_VERIFY(f->tag(1) && f->tag(1)->fileCount(1) == 11);
    }

    void failedBatchLeavesNothing()
    {
        QVERIFY(import({picture("/p/a.jpg", {"sea"})}).succeeded);
        // A file without a path cannot be stored.
        const ImportOutcome outcome = import({picture("/p/b.jpg", {"new"}), picture(QByteArray(), {"x"})});
        QVERIFY(!outcome.succeeded);
        QVERIFY(!outcome.message.isEmpty());
        QCOMPARE(outcome.filesAdded, 0);
        QCOMPARE(f->group(-1)->tagCount(1), 1);
        QVERIFY(import({picture("/p/b.jpg", {"new"})}).succeeded);
        QCOMPARE(f->group(-1)->tagByName("new")->fileCount(1), 1);
    }

private:
    ImportOutcome import(const QVector<ImportedFile>& files)
    {
        ImportOutcome outcome;
        bool answered = false;
        f->library()->requestImport(files, this, [&](const ImportOutcome& result) {
            outcome = result;
            answered = true;
        });
        [&] { QTRY_VERIFY(answered); }();
        return outcome;
    }

    QByteArrayList pathsOf(const FileQuery& query)
    {
        QByteArrayList paths;
        bool answered = false;
        f->library()->queryFileIds(query, this, [&](const QVector<qint64>& ids, const QString& error) {
            QVERIFY2(error.isEmpty(), qPrintable(error));
            f->library()->queryFiles(ids, this, [&](const QVector<FileRow>& files, const QString&) {
                for (const FileRow& file : files)
                    paths.append(file.path);
                answered = true;
            });
        });
        [&] { QTRY_VERIFY(answered); }();
        return paths;
    }

    std::unique_ptr<LibraryFixture> f;
};

QTEST_GUILESS_MAIN(TstLibraryImport)

#include "tst_libraryimport.moc"
