// SPDX-License-Identifier: MIT
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <QMenu>
#include <QPixmap>
#include <QTest>

/// The life of windows from the first to the last, with something of everything in between: short enough for valgrind,
/// which sees reads of memory that was never written.
class TestLifecycle : public QObject
{
    Q_OBJECT

private slots:
    void windowsComeAndGo();
};

namespace {

QStringList manyNames()
{
    QStringList names{QStringLiteral("Zebra"), QStringLiteral("山水"), QStringLiteral("été"), QStringLiteral("🐱 cat")};
    for (int i = 0; i < 60; ++i)
        names.append(QStringLiteral("tag %1").arg(i));
    return names;
}

void useEveryPage(WindowUser& user, InstalledHost& host)
{
    user.search(QStringLiteral("tag 1"));
    QTRY_COMPARE(user.chips().size(), 1);
    user.search({});
    QTRY_VERIFY(user.chips().size() > 1);
    QVERIFY(WindowUser::choose(user.openTagMenu(QStringLiteral("Zebra")), QStringLiteral("Rename Tag")));
    user.enterName(QStringLiteral("Aardvark"));
    QTRY_VERIFY(host.tagId(QStringLiteral("Aardvark")) != 0);
    QTRY_VERIFY(!user.dialog());
    user.clickCreateTag();
    user.enterName(QStringLiteral("Yak"));
    QTRY_VERIFY(!user.dialog());
    QVERIFY(WindowUser::choose(user.openTagMenu(QStringLiteral("Yak")), QStringLiteral("Delete Tag")));
    user.answerBox(true);
    QTRY_VERIFY(host.tagId(QStringLiteral("Yak")) == 0);

    user.selectPage(WindowUser::Categories);
    user.clickTile(user.tile(QStringLiteral("Animals")));
    QMenu* menu = user.openGroupMenu(QStringLiteral("Animals"));
    QVERIFY(WindowUser::choose(menu, QStringLiteral("Delete Category")));
    user.answerBox(false);
    user.selectPage(WindowUser::Favorites);
    host.setFavorite(host.tagId(QStringLiteral("Aardvark")), true);
    QVERIFY(user.chips().join(QLatin1Char('\n')).startsWith(QLatin1String("A: Aardvark 0")));
    QVERIFY(!user.window()->grab().isNull());
}

}  // namespace

void TestLifecycle::windowsComeAndGo()
{
    const MessageCatcher log;
    InstalledHost host(manyNames());
    const qint64 group = host.addGroup(QStringLiteral("Animals"));
    const qint64 zebra = host.tagId(QStringLiteral("Zebra"));
    host.addTagsToGroups({group}, {zebra});
    for (int round = 0; round < 2; ++round) {
        WindowUser first;
        WindowUser second;
        useEveryPage(first, host);
        if (QTest::currentTestFailed())
            return;
        first.closeWindow();
        host.renameTag(zebra, QStringLiteral("Zebra"));
        host.setFavorite(zebra, false);
        settle();
        QCOMPARE(second.counter(), QStringLiteral("(64)"));
    }
    QCOMPARE(log.problems(), QStringList());
}

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
