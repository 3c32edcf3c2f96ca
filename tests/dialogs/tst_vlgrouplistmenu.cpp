// SPDX-License-Identifier: MIT
#include "pages/addtocategory/vlgrouplistmenu.h"

#include <QtTest>

class TestVLGroupListMenu : public QObject
{
    Q_OBJECT

private slots:
    void fitsItsRowsAndForgivesWrongIds()
    {
        VLGroupListMenu list;
        list.setFixedSize(168, 230);
        for (const qint64 id : {14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 7})
            list.slotAddItem(id, QString::number(id));
        list.slotUpdateItem(99, QStringLiteral("nothing"));
        list.slotRemoveItem(99);
        QCOMPARE(list.ids(), QVector<qint64>({14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4}));
        QCOMPARE(list.height(), 230);
        for (const int height : {300, 270, 240}) {
            list.slotRemoveItem(list.ids().constLast());
            QCOMPARE(list.height(), height);
        }
        list.show();
        QCOMPARE(list.visualItemRect(list.item(1)), QRect(0, 30, list.viewport()->width(), 30));
    }
};

QTEST_MAIN(TestVLGroupListMenu)
#include "tst_vlgrouplistmenu.moc"
