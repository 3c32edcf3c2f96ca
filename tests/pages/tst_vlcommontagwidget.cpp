// SPDX-License-Identifier: MIT
#include "pages/vlcommontagwidget.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

class TestCommonTagWidget : public QObject
{
    Q_OBJECT

private slots:
    void showsAndFollowsTheFavorites();
    void hasNeitherCounterNorCreateButton();
};

void TestCommonTagWidget::showsAndFollowsTheFavorites()
{
    InstalledHost host({QStringLiteral("apple"), QStringLiteral("bee"), QStringLiteral("cow")});
    const qint64 bee = host.tagId(QStringLiteral("bee"));
    host.setFavorite(bee, true);
    VLCommonTagWidget page(2, nullptr);
    page.initialise(VLTagManagerSingleton::instance()->favoriteTagsProvider());
    page.resize(800, 500);
    page.show();
    QCOMPARE(gestures::shownChips(&page), QStringList(QStringLiteral("B: bee")));
    host.setFavorite(host.tagId(QStringLiteral("apple")), true);
    host.setFavorite(bee, false);
    QTRY_COMPARE(gestures::shownChips(&page), QStringList(QStringLiteral("A: apple")));
    page.findChild<QLineEdit*>()->setText(QStringLiteral("b"));
    QTRY_COMPARE(gestures::shownChips(&page), QStringList());
    page.findChild<QLineEdit*>()->clear();
    QTRY_COMPARE(gestures::shownChips(&page), QStringList(QStringLiteral("A: apple")));
    host.removeTags({host.tagId(QStringLiteral("apple"))});
    QCOMPARE(gestures::shownChips(&page), QStringList());
}

void TestCommonTagWidget::hasNeitherCounterNorCreateButton()
{
    VLCommonTagWidget page(2, nullptr);
    page.initialise({});
    page.show();
    QVERIFY(page.findChild<QLabel*>(QStringLiteral("all_tag_count_label"))->isHidden());
    QVERIFY(page.findChild<QPushButton*>(QStringLiteral("create_tag_btn"))->isHidden());
    QCOMPARE(page.layout()->contentsMargins(), QMargins(46, 2, 0, 0));
}

QTEST_MAIN(TestCommonTagWidget)
#include "tst_vlcommontagwidget.moc"
