// SPDX-License-Identifier: MIT
#include "tests/library/libraryfixture.h"

#include <QSignalSpy>
#include <QTest>

/// What requests change, what is told about it and in which order, and that memory and disk agree afterwards.
class TstLibraryRequests : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
        QVERIFY(f->createTags({"one", "two", "three"}));
        QVERIFY(f->createCategories({"left", "right"}));
        f->takeLog();
    }

    void cleanup()
    {
        if (f->isOpen()) {
            QCOMPARE(f->shown(), f->stored());
            const QStringList before = f->shown();
            QVERIFY(f->reopen());
            QCOMPARE(f->shown(), before);
        }
        f->close();
        QCOMPARE(LibraryFixture::integrity(f->path()), QStringLiteral("ok"));
    }

    void newLibraryHasTheReservedCategories()
    {
        QCOMPARE(f->group(-1)->tagCount(1), 3);
        QCOMPARE(f->group(0)->groupName(), QStringLiteral("Unsorted"));
        QCOMPARE(f->group(0)->tagCount(1), 3);
        QCOMPARE(f->group(1)->groupName(), QStringLiteral("Favorite Tags"));
        QCOMPARE(f->group(1)->groupInfo()->id(), 1);
        QVERIFY(!f->group(-2));
        QVector<QSharedPointer<ITagGroupDataProvider>> groups;
        QCOMPARE(f->manager()->tagGroups(groups), 2);
        QCOMPARE(groups.first()->groupId(), 2);
        QCOMPARE(f->manager()->tagGroupByName("right"), f->group(3));
        QCOMPARE(f->tag(1), f->group(0)->tagByName("one"));
        QVERIFY(!f->group(2)->tagByName("one"));
        QVERIFY(!f->tag(99));
    }

    void createdTagsAreToldInBulkBeforeTheAnswer()
    {
        f->follow({-1, 0, 1, 2});
        QCOMPARE(f->logUntil(f->tags()->createTags({{"four", 0, 0}, {"five", 0, 7}})),
                 (QStringList{"add -1: 4 5", "updated category -1", "add 0: 4 5", "updated category 0", "answer 0"}));
        QCOMPARE(f->tag(5)->tagInfo()->colorIndex(), 7);
        QCOMPARE(f->logUntil(f->tags()->createTags({})), QStringList{"answer 0"});
    }

    void changedRecordsTellTheirProviders()
    {
        f->follow({-1, 0, 2, 3});
        QCOMPARE(f->logUntil(f->tags()->renameTag(2, "  zwei ")), (QStringList{"updated tag 2", "answer 0"}));
        QVERIFY(!f->group(-1)->tagByName("two"));
        QCOMPARE(f->group(-1)->tagByName("zwei"), f->tag(2));
        QCOMPARE(f->logUntil(f->tags()->setTagColor(3, 5)), (QStringList{"updated tag 3", "answer 0"}));
        QCOMPARE(f->tag(3)->tagInfo()->colorIndex(), 5);
        QCOMPARE(f->logUntil(f->categories()->renameTagGroup(3, "gauche")),
                 (QStringList{"updated category 3", "answer 0"}));
        QCOMPARE(f->group(3)->groupName(), QStringLiteral("gauche"));
        QCOMPARE(f->manager()->tagGroupByName("gauche"), f->group(3));
        // The names that became free may be taken.
        QVERIFY(f->createTags({"two"}));
        f->takeLog();
        QCOMPARE(f->logUntil(f->categories()->addTagGroup("right")), (QStringList{"add categories: 4", "answer 0"}));
    }

    void tagsComeFromAndGoToUncategorized()
    {
        f->follow({-1, 0, 1, 2, 3});
        QCOMPARE(f->logUntil(f->tags()->addTagsToGroups({2, 3}, {1, 2})),
                 (QStringList{"add 2: 1 2", "updated category 2", "remove 0: 1 2", "updated category 0", "add 3: 1 2",
                              "updated category 3", "answer 0"}));
        QCOMPARE(f->logUntil(f->tags()->removeTagsFromGroups({2}, {1, 3})),
                 (QStringList{"remove 2: 1", "updated category 2", "answer 0"}));
        QCOMPARE(f->logUntil(f->tags()->removeTagsFromGroups({3}, {1})),
                 (QStringList{"remove 3: 1", "updated category 3", "add 0: 1", "updated category 0", "answer 0"}));
        // Favourites do not count as a category.
        QCOMPARE(f->logUntil(f->tags()->addTagsToGroups({1}, {3})),
                 (QStringList{"add 1: 3", "updated category 1", "answer 0"}));
        QCOMPARE(f->logUntil(f->tags()->removeTagsFromGroups({1}, {3})),
                 (QStringList{"remove 1: 3", "updated category 1", "answer 0"}));
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({1, 2}, {3})), 0);
        f->takeLog();
        QCOMPARE(f->logUntil(f->tags()->removeTagsFromGroups({2}, {3})),
                 (QStringList{"remove 2: 3", "updated category 2", "add 0: 3", "updated category 0", "answer 0"}));
    }

    void whatIsSoAlreadyChangesNothing()
    {
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({2}, {1})), 0);
        f->follow({-1, 0, 1, 2, 3});
        f->takeLog();
        f->tags()->addTagsToGroups({2, 2}, {1, 1});
        f->tags()->removeTagsFromGroups({1, 3}, {1});
        f->tags()->renameTag(1, " one");
        f->tags()->setTagColor(1, 0);
        f->categories()->renameTagGroup(2, "left");
        QCOMPARE(f->statusOf(f->tags()->deleteTags({})), 0);
        QCOMPARE(f->takeLog(), QStringList::fromVector(QVector<QString>(6, "answer 0")));
    }

    void deletedTagsLeaveEveryCategory()
    {
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({1, 2, 3}, {1})), 0);
        const auto held = f->tag(1);
        f->follow({-1, 0, 1, 2, 3});
        f->takeLog();
        const QStringList log = f->logUntil(f->tags()->deleteTags({1, 2, 1}));
        QCOMPARE(log.last(), QStringLiteral("answer 0"));
        for (const char* line : {"remove -1: 1 2", "remove 0: 2", "remove 1: 1", "remove 2: 1", "remove 3: 1"})
            QCOMPARE(log.count(line), 1);
        QCOMPARE(log.filter("updated category").size(), 5);
        QCOMPARE(log.size(), 11);
        QVERIFY(!held->tagInfo());
        QVERIFY(!f->group(-1)->tagByName("one"));
    }

    void removedCategoryGivesItsTagsBack()
    {
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({2}, {1, 2})), 0);
        QCOMPARE(f->statusOf(f->tags()->addTagsToGroups({3}, {2})), 0);
        const auto held = f->group(2);
        f->follow({0, 2, 3});
        f->takeLog();
        QCOMPARE(f->logUntil(f->categories()->removeTagGroup(2)),
                 (QStringList{"remove 2: 1 2", "add 0: 1", "updated category 0", "remove categories: 2", "answer 0"}));
        QVERIFY(!f->group(2));
        QVERIFY(!held->groupInfo());
        QCOMPARE(held->tagCount(1), 0);
        QVERIFY(!f->manager()->tagGroupByName("left"));
    }

    void everyRequestIsAnsweredOnceInTheOrderSent()
    {
        QVector<qint64> answered;
        QVector<qint64> sent;
        connect(f->tags().data(), &ITagAction::signalTagResult, this, [&](qint64 id) { answered.append(id); });
        connect(f->categories().data(), &ITagGroupAction::signalTagGroupResult, this,
                [&](qint64 id) { answered.append(id); });
        for (int i = 0; i < 40; ++i) {
            sent.append(f->tags()->renameTag(1, QStringLiteral("name %1").arg(i % 3)));
            sent.append(f->tags()->renameTag(2, QString()));
            sent.append(f->categories()->addTagGroup(QStringLiteral("category %1").arg(i % 30)));
        }
        QCOMPARE(answered.size(), 0);
        QTRY_COMPARE(answered.size(), sent.size());
        QCOMPARE(f->statusOf(f->tags()->setTagColor(1, 1)), 0);
        answered.removeLast();
        QCOMPARE(answered, sent);
        QCOMPARE(f->tag(1)->name(), QStringLiteral("name 0"));
    }

    void closingCommitsWhatWasSent()
    {
        for (int i = 0; i < 20; ++i)
            f->tags()->createTags({{QStringLiteral("late %1").arg(i), 0, 0}});
        const auto action = f->tags();
        QSignalSpy answers(action.data(), &ITagAction::signalTagResult);
        f->close();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(answers.count(), 0);
        const qint64 tooLate = action->deleteTags({1});
        QVERIFY(answers.wait());
        QCOMPARE(answers.first().first().toLongLong(), tooLate);
        QVERIFY(f->reopen());
        QCOMPARE(f->group(-1)->tagCount(1), 23);
    }

    void libraryMayBeDestroyedByAReceiver()
    {
        const auto held = f->group(-1);
        connect(held.data(), &ITagGroupDataProvider::signalAddTags, this, [this] { f->close(); });
        f->tags()->createTags({{"four", 0, 0}});
        f->tags()->createTags({{"five", 0, 0}});
        QTRY_VERIFY(!f->isOpen());
        QVERIFY(f->reopen());
        QCOMPARE(f->group(-1)->tagCount(1), 5);
    }

    void orderHoldsInANestedEventLoop()
    {
        // A receiver that waits for the answer of its own request, as a modal dialog would.
        f->follow({-1, 0, 2});
        const auto held = f->group(-1);
        connect(held.data(), &ITagGroupDataProvider::signalAddTags, this,
                [this] { f->answerTo(f->tags()->addTagsToGroups({2}, {4})); });
        QVERIFY(f->createTags({"four"}));
        QTRY_VERIFY(f->group(2)->tagCount(1) == 1);
        const QStringList log = f->takeLog();
        QVERIFY(log.indexOf("add 0: 4") >= 0);
        QVERIFY(log.indexOf("add 0: 4") < log.indexOf("remove 0: 4"));
        QCOMPARE(log.count("answer 0"), 2);
    }

private:
    std::unique_ptr<LibraryFixture> f;
};

QTEST_GUILESS_MAIN(TstLibraryRequests)

#include "tst_libraryrequests.moc"
