// SPDX-License-Identifier: MIT
#include "widgets/menupopup.h"

#include <QMenu>
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
};

QTEST_MAIN(TestMenuPopup)
#include "tst_menupopup.moc"
