// SPDX-License-Identifier: MIT
#include "host/library/readonlylibrary.h"
#include "host/library/records/tagpalette.h"
#include "tests/library/libraryfixture.h"

#include <QSignalSpy>
#include <QTest>

namespace {

ImportedFile picture(const QByteArray& path, const QVector<QString>& keywords, qint64 modified = 1)
{
    return {path, {100, modified, {}}, 1, {}, keywords};
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
        const LibraryResult result =
            import({picture("a.jpg", {"sea", "sky", " sea ", ""}), picture("b.jpg", {"sky"}), picture("c.jpg", {})});
        QVERIFY(result.succeeded());
        QCOMPARE(result.numbers.filesAdded, 3);
        QCOMPARE(result.change.tagsCreated.size(), 1);
        QCOMPARE(f->takeLog(), (QStringList{"updated tag 1", "add -1: 2", "updated category -1", "add 0: 2",
                                            "updated category 0", "answer 0"}));
        QVERIFY(files.count() >= 1);
        QCOMPARE(f->tag(1)->fileCount(1), 1);
        QCOMPARE(f->tag(2)->fileCount(1), 2);
        QCOMPARE(f->tag(2)->tagInfo()->colorIndex(), TagPalette::indexForName("sky"));
    }

    /// A keyword leads to the tag that it became, whatever happens to the file.
    void renamedTagKeepsItsKeyword()
    {
        QVERIFY(import({picture("a.jpg", {"sea"}), picture("b.jpg", {"sea"})}).succeeded());
        QCOMPARE(f->statusOf(f->tags()->renameTag(1, "ocean")), 0);
        QVERIFY(import({picture("a.jpg", {"sea", "new"}, 2), picture("c.jpg", {" sea"})}).succeeded());
        QCOMPARE(import({picture("b.jpg", {"sea"}, 2)}).numbers.filesChanged, 1);
        QTRY_COMPARE(f->tag(1)->fileCount(1), 3);
        QVERIFY(!f->group(-1)->tagByName("sea"));
        // The new name is another keyword.
        QCOMPARE(import({picture("b.jpg", {"ocean"}, 3)}).change.fileCountChanges.size(), 0);
        QTRY_COMPARE(f->tag(1)->fileCount(1), 3);
        // A tag of its own for the old name: the keyword stays where a person put it.
        QVERIFY(f->createTags({"sea"}));
        QVERIFY(import({picture("d.jpg", {"sea"})}).succeeded());
        QTRY_COMPARE(f->tag(1)->fileCount(1), 4);
        // The same content again writes nothing; a new version of the reader does.
        QCOMPARE(import({picture("d.jpg", {"sea"})}).numbers.filesChanged, 0);
        ImportedFile reread = picture("d.jpg", {"sea"});
        reread.readerVersion = 2;
        QCOMPARE(import({reread}).numbers.filesChanged, 1);
        QCOMPARE(f->knownFiles(1).value("d.jpg").readerVersion, 2);
    }

    /// Deleting marks the tag and costs nothing for each file; its keyword is ignored until a person wants it back.
    void deletedTagsKeywordIsIgnoredAndTakenBack()
    {
        QVERIFY(import({picture("a.jpg", {"sea", "sky"}), picture("b.jpg", {"sea"})}).succeeded());
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({1}, {1})), 0);
        QSignalSpy changed(f->library(), &Library::filesChanged);
        QCOMPARE(f->statusOf(f->tags()->deleteTags({1})), 0);
        QCOMPARE(changed.count(), 1);
        QVERIFY(import({picture("a.jpg", {"sea", "sky", "more"}, 2), picture("c.jpg", {"sea"})}).succeeded());
        QCOMPARE(pathsOf(FileQuery::ofTags({1})), QByteArrayList());
        QCOMPARE(pathsOf(FileQuery::ofCategories({-1})), QByteArrayList{"/p/a.jpg"});
        const auto reader = ReadOnlyLibrary::open(f->path());
        const auto ignored = reader->keywordsIgnored().value;
        QCOMPARE(ignored.size(), 1);
        QCOMPARE(ignored.first().name, QStringLiteral("sea"));
        QCOMPARE(ignored.first().fileCount, 3);
        const LibraryTotals totals = reader->totals().value;
        QCOMPARE(totals.files, 3);
        QCOMPARE(totals.tags, 2);
        QCOMPARE(totals.links, 2);
        // By a new tag of its name, then by one that gets its name.
        QVERIFY(f->createTags({"sea"}));
        QCOMPARE(f->group(-1)->tagByName("sea")->fileCount(1), 3);
        QCOMPARE(f->statusOf(f->tags()->deleteTags({f->group(-1)->tagByName("sea")->tagInfo()->id()})), 0);
        QVERIFY(f->createTags({"other"}));
        QCOMPARE(f->statusOf(f->tags()->renameTag(f->group(-1)->tagByName("other")->tagInfo()->id(), "sea")), 0);
        QCOMPARE(f->group(-1)->tagByName("sea")->fileCount(1), 3);
        QCOMPARE(reader->keywordsIgnored().value.size(), 0);
        // The tags stay when the file is forgotten.
        const LibraryResult forgotten = f->library()->forgetAndWait(1, {"a.jpg", "never.jpg"});
        QCOMPARE(forgotten.numbers.filesRemoved, 1);
        QTRY_COMPARE(f->tag(2)->fileCount(1), 0);
    }

    /// What people decided about single files, as later versions of the program will let them.
    void decisionsHoldUntilTheFileAgrees()
    {
        QVERIFY(import({picture("a.jpg", {"sea"}), picture("b.jpg", {"sky"})}).succeeded());
        QTRY_VERIFY(f->tag(2));
        QCOMPARE(LibraryFixture::rowsOf(f->path(), {"INSERT INTO decisions VALUES (1, 2, 1), (1, 1, -1)"}),
                 QStringList());
        QVERIFY(import({picture("a.jpg", {"sea", "more"}, 2)}).succeeded());
        QCOMPARE(pathsOf(FileQuery::ofTags({2})), (QByteArrayList{"/p/a.jpg", "/p/b.jpg"}));
        QCOMPARE(pathsOf(FileQuery::ofTags({1})), QByteArrayList());
        QVERIFY(import({picture("a.jpg", {"sky"}, 3)}).succeeded());
        QCOMPARE(pathsOf(FileQuery::ofTags({2})), (QByteArrayList{"/p/a.jpg", "/p/b.jpg"}));
        QCOMPARE(LibraryFixture::rowsOf(f->path(), {"SELECT count(*) FROM decisions"}), QStringList{"0"});
    }

    void rootsAreAdopted()
    {
        Library* const library = f->library();
        const LibraryResult inner = library->addRootAndWait("/nowhere/a/b");
        QVERIFY(library->importAndWait(inner.rootId, {picture("x.jpg", {"sea"})}).succeeded());
        const LibraryResult below = library->addRootAndWait("/nowhere/a/b/c/d");
        QCOMPARE(below.rootId, inner.rootId);
        QCOMPARE(below.folderInRoot, QByteArray("c/d"));
        const LibraryResult beside = library->addRootAndWait("/nowhere/a/bc");
        QVERIFY(library->importAndWait(beside.rootId, {picture("y.jpg", {"sea"})}).succeeded());
        // What is rolled back leaves the mounts alone.
        QCOMPARE(LibraryFixture::rowsOf(f->path(), {"CREATE TRIGGER refusal BEFORE INSERT ON changes"
                                                    " BEGIN SELECT RAISE(ABORT, 'refused'); END"}),
                 QStringList());
        QVERIFY(!library->addRootAndWait("/nowhere/a").succeeded());
        QCOMPARE(LibraryFixture::rowsOf(f->path(), {"DROP TRIGGER refusal"}), QStringList());
        QCOMPARE(library->addRootAndWait("/nowhere/a/b").rootId, inner.rootId);
        const LibraryResult outer = library->addRootAndWait("/nowhere/a");
        QCOMPARE(pathsOf(FileQuery::allFiles()), (QByteArrayList{"/nowhere/a/b/x.jpg", "/nowhere/a/bc/y.jpg"}));
        const auto reader = ReadOnlyLibrary::open(f->path());
        const auto roots = reader->roots().value;
        QCOMPARE(roots.size(), 1);
        QCOMPARE(roots.first().fileCount, 2);
        QCOMPARE(f->knownFiles(outer.rootId, "b").keys(), QList<QByteArray>{"b/x.jpg"});
        QCOMPARE(library->importAndWait(inner.rootId, {picture("z.jpg", {})}).status, LibraryStatus::UnknownId);
        QVERIFY(reader->files({1}).value.first().isAway);
    }

    /// Several readings that belong together see one moment.
    void snapshotOfTheReader()
    {
        const auto reader = ReadOnlyLibrary::open(f->path());
        {
            const ReadOnlyLibrary::Snapshot snapshot(*reader);
            QCOMPARE(reader->tags().value.size(), 0);
            QVERIFY(import({picture("a.jpg", {"sea"})}).succeeded());
            QCOMPARE(reader->tags().value.size(), 0);
            QCOMPARE(reader->forEachFile([](const FileRow&) { return true; }).value, 0);
        }
        QCOMPARE(reader->tags().value.size(), 1);
    }

    void queriesForTheFileView()
    {
        QVERIFY(import({picture("q/z.jpg", {"sea"}), picture("b.jpg", {"sea", "sky"}), picture("a.jpg", {"night"}),
                        picture("plain.jpg", {}), picture("pq.jpg", {})})
                    .succeeded());
        QVERIFY(f->createCategories({"left", "empty"}));
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({2}, {1, 2})), 0);
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({1}, {3})), 0);
        QCOMPARE(pathsOf(FileQuery::allFiles()).size(), 5);
        QCOMPARE(pathsOf(FileQuery::ofTags({1, 2, 99})), (QByteArrayList{"/p/b.jpg", "/p/q/z.jpg"}));
        QCOMPARE(pathsOf(FileQuery::ofTags({})), QByteArrayList());
        QCOMPARE(pathsOf(FileQuery::ofCategories({2})), (QByteArrayList{"/p/b.jpg", "/p/q/z.jpg"}));
        QCOMPARE(pathsOf(FileQuery::ofCategories({3, 77})), QByteArrayList());
        QCOMPARE(pathsOf(FileQuery::ofCategories({0})), QByteArrayList{"/p/a.jpg"});
        QCOMPARE(pathsOf(FileQuery::ofCategories({-1})), (QByteArrayList{"/p/a.jpg", "/p/b.jpg", "/p/q/z.jpg"}));

        const auto reader = ReadOnlyLibrary::open(f->path());
        QCOMPARE(f->knownFiles(1).keys(), (QList<QByteArray>{"a.jpg", "b.jpg", "plain.jpg", "pq.jpg", "q/z.jpg"}));
        QCOMPARE(f->knownFiles(1, "q").keys(), QList<QByteArray>{"q/z.jpg"});
        QStringList listed;
        const auto visited = reader->forEachFile([&](const FileRow& file) {
            listed.append(QString::fromUtf8(file.path) + QLatin1Char(' ') + QString::number(file.tagIds.size()));
            return listed.size() < 2;
        });
        QCOMPARE(visited.value, 2);
        QCOMPARE(listed, (QStringList{"/p/a.jpg 1", "/p/b.jpg 2"}));
    }

    void largeBatchIsToldInPieces()
    {
        QVector<ImportedFile> files;
        for (int i = 0; i < 3000; ++i)
            files.append(picture("" + QByteArray::number(i), {QStringLiteral("tag %1").arg(i % 2500), "common"}));
        const auto all = f->group(-1);
        QSignalSpy added(all.data(), &ITagGroupDataProvider::signalAddTags);
        QCOMPARE(import(files).change.tagsCreated.size(), 2501);
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

    void failedBatchLeavesNothing()
    {
        QVERIFY(import({picture("a.jpg", {"sea"})}).succeeded());
        // A file without a path cannot be stored.
        const LibraryResult result = import({picture("b.jpg", {"new"}), picture(QByteArray(), {"x"})});
        QVERIFY(!result.succeeded());
        QVERIFY(!result.message.isEmpty());
        QCOMPARE(f->group(-1)->tagCount(1), 1);
        QVERIFY(import({picture("b.jpg", {"new"})}).succeeded());
        QCOMPARE(f->group(-1)->tagByName("new")->fileCount(1), 1);
    }

private:
    LibraryResult import(const QVector<ImportedFile>& files)
    {
        LibraryResult result = f->import(files);
        // What it changed is in memory after the answer to a later request.
        f->statusOf(f->tags()->deleteTags({}));
        return result;
    }

    QByteArrayList pathsOf(const FileQuery& query)
    {
        QByteArrayList paths;
        bool answered = false;
        f->library()->queryFileIds(query, this, [&](const LibraryAnswer<QVector<qint64>>& ids) {
            QVERIFY2(ids, qPrintable(ids.error));
            f->library()->queryFiles(ids.value, this, [&](const LibraryAnswer<QVector<FileRow>>& files) {
                for (const FileRow& file : files.value)
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
