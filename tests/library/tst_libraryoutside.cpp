// SPDX-License-Identifier: MIT
#include "host/library/readonlylibrary.h"
#include "tests/library/libraryfixture.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

namespace {

ImportedFile picture(int number, const QString& keyword)
{
    return {QByteArray::number(number), {1, 1, {}}, 1, {}, {{keyword}}};
}

/// The tags of a category as somebody knows them who listens to its signals only.
class Listener
{
public:
    explicit Listener(const QSharedPointer<ITagGroupDataProvider>& group)
        : m_group(group)
    {
        QHash<qint64, QSharedPointer<ITagDataProvider>> tags;
        group->tags(&tags);
        m_known = QSet<qint64>(tags.keyBegin(), tags.keyEnd());
        QObject::connect(group.data(), &ITagGroupDataProvider::signalAddTags, &m_context,
                         [this](const QVector<qint64>& ids) {
                             for (qint64 id : ids)
                                 m_known.insert(id);
                         });
        QObject::connect(group.data(), &ITagGroupDataProvider::signalRemoveTags, &m_context,
                         [this](const QVector<qint64>& ids) {
                             for (qint64 id : ids)
                                 m_known.remove(id);
                         });
    }
    [[nodiscard]] bool isRight() const
    {
        QHash<qint64, QSharedPointer<ITagDataProvider>> tags;
        m_group->tags(&tags);
        return m_known == QSet<qint64>(tags.keyBegin(), tags.keyEnd());
    }

private:
    QObject m_context;
    QSharedPointer<ITagGroupDataProvider> m_group;
    QSet<qint64> m_known;
};

}  // namespace

/// What other programs change in the file of an open library.
class TstLibraryOutside : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->createTags({"one", "two", "three"}));
        QVERIFY(f->createCategories({"left", "right"}));
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({2}, {1})), 0);
        other = std::make_unique<LibraryFixture>(f->path());
        QVERIFY(other->isOpen());
        f->follow({-1, 0, 1, 2, 3});
        f->takeLog();
    }

    void cleanup() { QCOMPARE(f->shown(), f->stored()); }

    void changesAreToldWithoutARequest()
    {
        QSignalSpy files(f->library(), &Library::filesChanged);
        QVERIFY(other->import({picture(1, "one"), picture(2, "four")}).succeeded());
        QCOMPARE(other->statusOf(other->tags()->setTagColor(1, 5)), 0);
        QCOMPARE(other->statusOf(other->tags()->addTagsToGroups({1, 3}, {3})), 0);
        QCOMPARE(other->statusOf(other->tags()->deleteTags({2})), 0);
        QCOMPARE(other->statusOf(other->categories()->renameTagGroup(3, "gauche")), 0);
        QVERIFY(other->createCategories({"new"}));
        QTRY_COMPARE(f->shown(), f->stored());
        QTRY_VERIFY(files.count() > 0);
        const QStringList log = f->takeLog();
        for (const char* line : {"updated tag 1", "add -1: 4", "add 1: 3", "add 3: 3", "remove -1: 2",
                                 "updated category 3", "add categories: 4"})
            QVERIFY2(log.contains(line), qPrintable(log.join('\n')));
    }

    /// The last program that closes a library removes its log. Who is not the last must know of the others.
    void nothingIsLostWhenAnotherProgramCloses()
    {
        const auto seenByAnotherProgram = [this] {
            QProcess program;
            program.start(QStringLiteral("sqlite3"), {f->path(), QStringLiteral("SELECT max(name) FROM tags")});
            program.waitForFinished();
            return program.readAllStandardOutput().trimmed();
        };
        QVERIFY(f->createTags({"x before"}));
        QVERIFY(LibraryFixture::openOnce(f->path()));
        QVERIFY(ReadOnlyLibrary::open(f->path()));
        QCOMPARE(seenByAnotherProgram(), QByteArray("x before"));
        QVERIFY(f->createTags({"y after"}));
        QCOMPARE(seenByAnotherProgram(), QByteArray("y after"));
    }

    void changesAreToldBeforeARequestIsCarriedOut()
    {
        QVERIFY(other->createTags({"four"}));
        QCOMPARE(f->statusOf(f->tags()->renameTag(4, "vier")), 0);
        const QStringList log = f->takeLog();
        QVERIFY(log.indexOf("add -1: 4") >= 0);
        QCOMPARE(log.last(), QStringLiteral("answer 0"));
        QCOMPARE(f->tag(4)->name(), QStringLiteral("vier"));
    }

    void namesThatChangedHands()
    {
        for (const auto& [tag, name] : {std::pair<int, const char*>{1, "x"}, {2, "one"}, {1, "two"}})
            QCOMPARE(other->statusOf(other->tags()->renameTag(tag, name)), 0);
        QCOMPARE(other->statusOf(other->tags()->deleteTags({3})), 0);
        QVERIFY(other->createTags({"three"}));
        QCOMPARE(other->statusOf(other->categories()->removeTagGroup(2)), 0);
        QVERIFY(other->createCategories({"left"}));
        QCOMPARE(f->statusOf(f->tags()->setTagColor(1, 1)), 0);
        QCOMPARE(f->group(-1)->tagByName("one"), f->tag(2));
        QCOMPARE(f->group(-1)->tagByName("two"), f->tag(1));
        QCOMPARE(f->group(-1)->tagByName("three"), f->tag(4));
        QVERIFY(!f->group(-1)->tagByName("x"));
        QCOMPARE(f->manager()->tagGroupByName("left"), f->group(4));
    }

    void ownChangesAreToldOnce()
    {
        QCOMPARE(f->statusOf(f->tags()->renameTag(1, "eins")), 0);
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({3}, {1, 2})), 0);
        QCOMPARE(f->statusOf(f->tags()->deleteTags({3})), 0);
        QVERIFY(f->import({picture(1, "eins"), picture(2, "four")}).succeeded());
        QVERIFY(f->createTags({"five"}));
        f->takeLog();
        QCOMPARE(other->statusOf(other->tags()->setTagColor(2, 6)), 0);
        QCOMPARE(f->statusOf(f->tags()->setTagColor(1, 1)), 0);
        QCOMPARE(f->takeLog(), (QStringList{"updated tag 2", "updated tag 1", "answer 0"}));
    }

    /// Who writes past this program leaves nothing in the library's own log of changes.
    void changesByHand()
    {
        const char* const countTagsOfCategories = "UPDATE categories SET tag_count = (SELECT count(*) FROM"
                                                  " tag_categories WHERE category_id = id)";
        QSignalSpy files(f->library(), &Library::filesChanged);
        QCOMPARE(LibraryFixture::rowsOf(
                     f->path(), {"UPDATE tags SET name = 'eins', color = 4, file_count = 7 WHERE id = 1",
                                 "UPDATE tags SET deleted = 1 WHERE id = 2", "INSERT INTO tags (name) VALUES ('four')",
                                 "DELETE FROM tag_categories", "INSERT INTO tag_categories VALUES (3, 3), (1, 1)",
                                 "UPDATE categories SET name = 'links' WHERE id = 2", countTagsOfCategories}),
                 QStringList());
        QTRY_VERIFY(f->shown() == f->stored() && files.count() > 0);
        QCOMPARE(f->group(-1)->tagByName("eins"), f->tag(1));
        const QStringList log = f->takeLog();
        for (const char* line : {"updated tag 1", "remove -1: 2", "add -1: 4", "add 3: 3", "remove 2: 1"})
            QVERIFY2(log.contains(line), qPrintable(log.join('\n')));
    }

    /// So does a program that changed more than the log holds.
    void changesThatTheLogDoesNotHold()
    {
        QCOMPARE(other->statusOf(other->tags()->renameTag(1, "eins")), 0);
        QCOMPARE(LibraryFixture::rowsOf(f->path(), {"DELETE FROM changes WHERE id < (SELECT max(id) FROM changes)"}),
                 QStringList());
        QCOMPARE(other->statusOf(other->tags()->renameTag(2, "zwei")), 0);
        QCOMPARE(f->statusOf(f->tags()->setTagColor(3, 1)), 0);
        QCOMPARE(f->shown(), f->stored());
    }

    void anotherProcess()
    {
        other.reset();
        f = std::make_unique<LibraryFixture>();
        const Listener all(f->group(-1));
        const Listener uncategorized(f->group(0));
        const Listener favorites(f->group(1));
        QProcess runner;
        runner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        runner.start(QStringLiteral(COMMAND_RUNNER), {f->path(), "4711"});
        QVERIFY(QTest::qWaitFor([&] { return runner.state() == QProcess::NotRunning; }, 60000));
        QCOMPARE(runner.readAllStandardOutput().size(), 60);
        QCOMPARE(f->statusOf(f->tags()->deleteTags({})), 0);
        QCOMPARE(f->shown(), f->stored());
        QVERIFY(all.isRight() && uncategorized.isRight() && favorites.isRight());
    }

    void largeChangesComeInPieces()
    {
        const Listener all(f->group(-1));
        QVector<ImportedFile> files;
        for (int i = 0; i < 12000; ++i)
            files.append(picture(i, QStringLiteral("key %1").arg(i)));
        QSignalSpy filesChanged(f->library(), &Library::filesChanged);
        QVERIFY(other->import(files).succeeded());
        QCOMPARE(other->statusOf(other->tags()->deleteTags({2})), 0);
        QVERIFY(f->createTags({"mine"}));
        QCOMPARE(f->group(-1)->tagCount(1), 12003);
        QVERIFY(filesChanged.count() > 0);
        QVERIFY(all.isRight());
    }

private:
    std::unique_ptr<LibraryFixture> f;
    std::unique_ptr<LibraryFixture> other;
};

QTEST_GUILESS_MAIN(TstLibraryOutside)

#include "tst_libraryoutside.moc"
