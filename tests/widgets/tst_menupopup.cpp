// SPDX-License-Identifier: MIT
#include "widgets/menupopup.h"

#include <QMenu>
#include <QScreen>
#include <QTest>

class TestMenuPopup : public QObject
{
    Q_OBJECT

private slots:
    void wideEntriesStayInsideAFixedWidth()
    {
        QMenu menu;
        QAction* narrow = menu.addAction(QStringLiteral("Rename"));
        QAction* wide = menu.addAction(QStringLiteral("An entry that wants more room"));
        const int natural = menu.sizeHint().width();
        menu.setFixedWidth(natural * 9 / 10);

        popUpMenuAtCursor(&menu);
        QTRY_VERIFY(menu.isVisible());
        QVERIFY(menu.actionGeometry(wide).right() < menu.width());
        QCOMPARE(narrow->font(), QFont());
        QVERIFY(wide->font() != QFont());

        menu.hide();
        wide->setText(QStringLiteral("Short"));
        popUpMenuAtCursor(&menu);
        QCOMPARE(wide->font(), QFont());
    }

    void menuOfAnItemLeavesItInSight()
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        QMenu menu;
        for (int i = 0; i < 5; ++i)
            menu.addAction(QStringLiteral("entry"));
        const QRect high(50, 30, 60, 24);
        popUpMenuBeside(&menu, high);
        QTRY_VERIFY(menu.isVisible());
        QCOMPARE(menu.geometry().topLeft(), high.bottomLeft() + QPoint(0, 1));
        menu.hide();
        const QRect low(50, screen.bottom() - 40, 60, 24);
        popUpMenuBeside(&menu, low);
        QTRY_VERIFY(menu.isVisible());
        QCOMPARE(menu.geometry().bottomLeft(), low.topLeft() - QPoint(0, 1));
    }
};

QTEST_MAIN(TestMenuPopup)
#include "tst_menupopup.moc"
