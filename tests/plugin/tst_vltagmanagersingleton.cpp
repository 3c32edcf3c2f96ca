// SPDX-License-Identifier: MIT
#include "plugin/state/requestresult.h"
#include "plugin/state/tagitem.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"

#include <QTest>

namespace {

VLTagManagerSingleton* shared()
{
    return VLTagManagerSingleton::instance();
}

}  // namespace

class TestTagManagerSingleton : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        shared()->clear();
        shared()->setTagColorProvider(nullptr);
    }

    void lookUpsNeverFetch()
    {
        InstalledHost host({QStringLiteral("apple")});
        const qint64 group = host.addGroup(QStringLiteral("Fruit"));
        QVERIFY(!shared()->tagGroupProvider(group));
        QVERIFY(!shared()->tagGroupByName(QStringLiteral("Fruit")));
        QVERIFY(!shared()->tagProvider(1));
        QVERIFY(shared()->tagManagerProvider());
        QCOMPARE(shared()->tagGroupProvider(group)->groupName(), QStringLiteral("Fruit"));
        QCOMPARE(shared()->tagGroupByName(QStringLiteral("Fruit"))->groupId(), group);
        QCOMPARE(shared()->tagProvider(1)->name(), QStringLiteral("apple"));
        QVERIFY(!shared()->tagProvider(99));
        QVERIFY(!shared()->isFavoriteTag(1));
        host.setFavorite(1, true);
        QVERIFY(shared()->isFavoriteTag(1));
    }

    void survivesWithoutALibrary()
    {
        QVERIFY(!shared()->allTagsProvider() && !shared()->tagGroupAction() && !shared()->isFavoriteTag(1));
        QVERIFY(shared()->tagColors().isEmpty() && !shared()->tagColor(0).isValid());
    }

    void answersCountOnlyWhenNothingWasRejected()
    {
        QVERIFY(!shared()->isResponseSucceeded({}));
        QVERIFY(shared()->isResponseSucceeded(MemoryHost::response()));
        QVERIFY(!shared()->isResponseSucceeded(MemoryHost::response(-1)));
        const auto tags = MemoryHost::response();
        tags->tags.append(QSharedPointer<const ITagInfo>());
        const auto groups = MemoryHost::response();
        groups->groups.append(QSharedPointer<const ITagGroupInfo>());
        const auto files = MemoryHost::response();
        files->files.append(QSharedPointer<const QString>());
        for (const auto& response : {tags, groups, files})
            QVERIFY(!shared()->isResponseSucceeded(response));
    }

    void answerIsMatchedByItsRequest()
    {
        InstalledHost host;
        host.setAnswers(MemoryHost::Answers::OnDemand);
        MessageCatcher log;
        const auto action = shared()->tagAction();
        int succeeded = 0;
        for (int i = 0; i < 2; ++i)
            followTagRequest(action.data(), action->deleteTags({1}), "failed. Message:", [&succeeded] { ++succeeded; });
        host.answerForeign(4711, MemoryHost::response(1, QStringLiteral("foreign")));
        host.answer(host.requests().at(0), {});
        QCOMPARE(log.take(), QStringList());
        host.answer(host.requests().at(1), MemoryHost::response(1, QStringLiteral("no room")));
        QCOMPARE(log.take(), QStringList(QStringLiteral("failed. Message: \"no room\"")));
        QCOMPARE(succeeded, 0);
        host.answer(host.requests().at(0), MemoryHost::response());
        QCOMPARE(succeeded, 1);
        QCOMPARE(log.take(), QStringList());
    }
};

QTEST_MAIN(TestTagManagerSingleton)
#include "tst_vltagmanagersingleton.moc"
