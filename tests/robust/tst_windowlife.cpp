// SPDX-License-Identifier: MIT
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <QMenu>
#include <QPixmap>
#include <QtTest>

/// The life of a window, short enough for a run under a memory checker: opened, searched, worked with by menus and
/// dialogs on every page, painted, and deleted.
class TestWindowLife : public QObject
{
    Q_OBJECT

private slots:
    void opensWorksAndGoes();
};

void TestWindowLife::opensWorksAndGoes()
{
    const MessageCatcher log;
    InstalledHost host({"apple", "ant", "bee", QStringLiteral("\u4e2d\u56fd")});
    host.addGroups({"Art", "Books"});
    host.addTagsToGroups({2}, {1});
    for (int life = 0; life < 2; ++life) {
        WindowUser user;
        user.search("an");
        settle();
        QCOMPARE(user.chips().size(), 1);
        user.search({});
        settle();

        QVERIFY(WindowUser::choose(user.openTagMenu("ant"), "Set as Favorite Tag"));
        settle();
        QVERIFY(WindowUser::choose(user.openTagMenu("ant"), "Rename Tag"));
        user.enterName("yak");
        settle();
        QVERIFY(!user.dialog());
        user.clickCreateTag();
        user.enterName("ant");
        settle();
        QVERIFY(WindowUser::choose(user.openTagMenu("yak"), "Delete Tag"));
        user.answerBox(true);
        settle();
        QCOMPARE(user.counter(), QStringLiteral("(4)"));

        user.selectPage(WindowUser::Categories);
        user.clickTile(user.tile("Art"));
        QVERIFY(WindowUser::choose(user.openGroupMenu("Books"), "Rename Category"));
        user.enterName("Zoo");
        settle();
        QVERIFY(WindowUser::choose(user.openGroupMenu("Zoo"), "Delete Category"));
        user.answerBox(true);
        settle();
        host.addGroup("Books");
        user.selectPage(WindowUser::Favorites);
        QVERIFY(!user.window()->grab().isNull());
    }
    QCOMPARE(log.problems(), QStringList());
}

QTEST_MAIN(TestWindowLife)
#include "tst_windowlife.moc"
