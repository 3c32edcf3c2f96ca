// SPDX-License-Identifier: MIT
#include "pages/vlgrouplistmenu.h"

#include <vleventtrack.h>

#include <QMenu>
#include <QtTest>
#include <QWidgetAction>

namespace {
QStringList rows(const VLGroupListMenu& list)
{
    QStringList texts;
    for (int i = 0; i < list.count(); ++i)
        texts.append(list.item(i)->text());
    return texts;
}

void fill(VLGroupListMenu& list, int count)
{
    for (int id = 2; id < 2 + count; ++id)
        list.slotAddItem(id, QString::number(id));
}
}  // namespace

class TestVLGroupListMenu : public QObject
{
    Q_OBJECT

private slots:
    void keepsItsRows();
    void shrinksOnRemoval();
    void clickReportsOnce();
    void isWorkedByKeyboardInsideItsMenu();
};

void TestVLGroupListMenu::keepsItsRows()
{
    VLGroupListMenu list;
    list.setFixedSize(168, 230);
    list.slotAddItem(7, QStringLiteral("Zoo"));
    list.slotAddItem(3, QStringLiteral("<b>Animals</b>"));
    list.slotAddItem(7, QStringLiteral("again"));
    QCOMPARE(rows(list), QStringList({QStringLiteral("Zoo"), QStringLiteral("<b>Animals</b>")}));
    QCOMPARE(list.ids(), QVector<qint64>({7, 3}));
    QCOMPARE(list.item(1)->data(Qt::UserRole).toLongLong(), 3);

    list.slotUpdateItem(3, QStringLiteral("Art"));
    list.slotUpdateItem(99, QStringLiteral("nothing"));
    list.slotRemoveItem(99);
    QCOMPARE(rows(list), QStringList({QStringLiteral("Zoo"), QStringLiteral("Art")}));
    QCOMPARE(list.height(), 230);

    list.slotRemoveItem(7);
    QCOMPARE(list.ids(), QVector<qint64>{3});
    list.slotAddItem(7, QString(2000, QLatin1Char('W')));
    QCOMPARE(rows(list).last().size(), 2000);
    list.show();
    QCOMPARE(list.visualItemRect(list.item(1)), QRect(0, 30, list.viewport()->width(), 30));
}

void TestVLGroupListMenu::shrinksOnRemoval()
{
    VLGroupListMenu list;
    list.setFixedSize(168, 230);
    fill(list, 12);
    QCOMPARE(list.height(), 230);
    list.slotRemoveItem(2);
    QCOMPARE(list.height(), 300);
    list.slotRemoveItem(3);
    QCOMPARE(list.height(), 300);
    list.slotRemoveItem(4);
    QCOMPARE(list.height(), 270);
    for (int id = 5; id < 14; ++id)
        list.slotRemoveItem(id);
    QCOMPARE(list.height(), 0);
}

void TestVLGroupListMenu::clickReportsOnce()
{
    VLGroupListMenu list;
    list.setFixedSize(168, 230);
    list.slotAddItem(5, QStringLiteral("Art"));
    const qint64 wide = (Q_INT64_C(1) << 32) + 9;
    list.slotAddItem(wide, QStringLiteral("Wide"));
    list.show();
    QSignalSpy clicked(&list, &VLGroupListMenu::signClicked);
    QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
    for (int row = 0; row < 2; ++row)
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(row)).center());
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(clicked.at(0).first().toLongLong(), 5);
    QCOMPARE(clicked.at(1).first().toLongLong(), 9);
    QCOMPARE(tracked.count(), 2);
    QCOMPARE(tracked.at(0).at(0).toString(), QStringLiteral("SendBClickLabelMenu"));
    QCOMPARE(tracked.at(0).at(1).toList(), QVariantList({QStringLiteral("Add to Category"), QStringLiteral("Art")}));
}

void TestVLGroupListMenu::isWorkedByKeyboardInsideItsMenu()
{
    QMenu menu;
    QMenu* subMenu = menu.addMenu(QStringLiteral("Add to Category"));
    auto* list = new VLGroupListMenu;
    list->setFixedSize(168, 230);
    auto* action = new QWidgetAction(subMenu);
    action->setDefaultWidget(list);
    subMenu->addAction(action);
    fill(*list, 3);
    const auto press = [](Qt::Key key) {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup->focusWidget() ? popup->focusWidget() : popup, key);
    };
    QSignalSpy clicked(list, &VLGroupListMenu::signClicked);
    QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
    menu.popup(QPoint(0, 0));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));

    press(Qt::Key_Down);
    press(Qt::Key_Right);
    QTRY_VERIFY(subMenu->isVisible());
    QCOMPARE(subMenu->focusWidget(), list);
    QCOMPARE(list->currentRow(), 0);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QCOMPARE(tracked.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.takeFirst().first().toLongLong(), 3);

    press(Qt::Key_Left);
    QTRY_VERIFY(!subMenu->isVisible());
    QVERIFY(menu.isVisible());
    press(Qt::Key_Right);
    QTRY_VERIFY(subMenu->isVisible());
    press(Qt::Key_Space);
    QCOMPARE(clicked.takeFirst().first().toLongLong(), 2);
    press(Qt::Key_Escape);
    QTRY_VERIFY(!subMenu->isVisible());
    QVERIFY(menu.isVisible());
    QCOMPARE(clicked.count(), 0);
}

QTEST_MAIN(TestVLGroupListMenu)
#include "tst_vlgrouplistmenu.moc"
