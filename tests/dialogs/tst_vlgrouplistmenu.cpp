// SPDX-License-Identifier: MIT
#include "pages/addtocategory/vlgrouplistmenu.h"

#include <QTextDocument>
#include <QToolTip>
#include <QtTest>

class TestVLGroupListMenu : public QObject
{
    Q_OBJECT

private slots:
    void rowsThatAreCutHaveAToolTip()
    {
        VLGroupListMenu list;
        list.setFixedSize(168, 230);
        const QString cut = QStringLiteral("a category's name that is too <b>long");
        list.slotAddItem(2, QStringLiteral("short"));
        list.slotAddItem(3, cut);
        list.show();
        for (int row = 0; row < list.count(); ++row) {
            const QPoint pos = list.visualItemRect(list.item(row)).center();
            QHelpEvent help(QEvent::ToolTip, pos, list.viewport()->mapToGlobal(pos));
            QCoreApplication::sendEvent(list.viewport(), &help);
            QTextDocument text;
            text.setHtml(QToolTip::text());
            QCOMPARE(text.toPlainText(), row == 0 ? QString() : cut);
        }
    }

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
