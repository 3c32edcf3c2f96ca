// SPDX-License-Identifier: MIT
#include "pages/vlgrouplistmenu.h"

#include <QtTest>

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
    list.slotUpdateItem(3, QStringLiteral("Art"));
    list.slotUpdateItem(99, QStringLiteral("nothing"));
    list.slotRemoveItem(99);
    QCOMPARE(rows(list), QStringList({QStringLiteral("Zoo"), QStringLiteral("Art")}));
    list.show();
    QCOMPARE(list.visualItemRect(list.item(1)), QRect(0, 30, list.viewport()->width(), 30));

    fill(list, 12);
    QCOMPARE(list.height(), 230);
    for (const int height : {300, 300, 270, 240}) {
        list.slotRemoveItem(list.ids().last());
        QCOMPARE(list.height(), height);
    }
}

QTEST_MAIN(TestVLGroupListMenu)
#include "tst_vlgrouplistmenu.moc"
