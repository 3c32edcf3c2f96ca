// SPDX-License-Identifier: MIT
#include "taglist/vltagdelegate.h"

#include "taglist/chiptexts.h"
#include "taglist/vltaglistview.h"
#include "tests/support/installedhost.h"

#include <QHoverEvent>
#include <QPainter>
#include <QtTest>

namespace {

/// A list of red tags with these names.
struct Chips
{
    explicit Chips(const QStringList& names)
        : view(QVector<TagItem>{}, nullptr)
    {
        view.setItemDelegate(new VLTagDelegate(&view));
        for (const QString& name : names)
            view.addTag(*readTagItem(host.tag(host.addTag(name, 1))));
        view.show();
    }

    QRect rect(int row) const { return view.visualRect(view.model()->index(row, 0)); }

    /// What is shown at a point counted from a chip's corner.
    QColor color(int row, int x, int y)
    {
        return view.viewport()->grab().toImage().pixelColor(rect(row).topLeft() + QPoint(x, y));
    }

    InstalledHost host;
    VLTagListView view;
};

}  // namespace

class TagDelegateTest : public QObject
{
    Q_OBJECT

private slots:
    void chipHasTheTagsColor()
    {
        Chips chips({"red"});
        const int right = chips.rect(0).width() - 1;
        QCOMPARE(chips.color(0, 4, 11), QColor(0xb3261e));
        QCOMPARE(chips.color(0, right + 1, 11), QColor(0xb3261e));
        QVERIFY(chips.color(0, right + 2, 11) != QColor(0xb3261e));
        chips.host.setTagColor(1, 4);
        QCOMPARE(chips.color(0, 4, 11), QColor(0x1f6f3a));
    }

    void hoverLightensOneChip()
    {
        Chips chips({"one", "two"});
        const QColor plain = chips.color(0, 4, 11);
        QHoverEvent enter(QEvent::HoverMove, chips.rect(0).center(), QPoint(0, 0));
        QApplication::sendEvent(chips.view.viewport(), &enter);
        QVERIFY(chips.color(0, 4, 11).lightness() > plain.lightness());
        QCOMPARE(chips.color(1, 4, 11), plain);
        QHoverEvent leave(QEvent::HoverLeave, QPoint(-1, -1), chips.rect(0).center());
        QApplication::sendEvent(chips.view.viewport(), &leave);
        QCOMPARE(chips.color(0, 4, 11), plain);
    }

    void chipWithoutNameIsAnOutline()
    {
        Chips chips({""});
        QCOMPARE(chips.rect(0).size(), QSize(82, 22));
        const QColor background = chips.color(0, 1 - chips.rect(0).x(), 1 - chips.rect(0).y());
        QCOMPARE(chips.color(0, 60, 11), background);
        QVERIFY(chips.color(0, 68, 9) != background);
    }

    void keptTextsLookAsDrawnOnes()
    {
        const QStringList texts{"plain",
                                "office AVATAR",
                                "Årçh vásé",
                                "旦蝎沾 x",
                                "x 🌀 y",
                                "שלום abc 12",
                                "abc שלום",
                                "हिन्दी",
                                "a\tb",
                                "two\nlines",
                                QString("a") + QChar(0x2028) + "b",
                                QString(5000, 'x'),
                                " ",
                                "\u200f1 a!"};
        const auto kept = ChipTexts::shared();
        for (const qreal scale : {1.0, 1.5, 2.0}) {
            for (const QString& text : texts) {
                QImage drawn(300, 60, QImage::Format_ARGB32_Premultiplied);
                drawn.setDevicePixelRatio(scale);
                drawn.fill(Qt::blue);
                QImage repeated = drawn;
                QPainter drawnPainter(&drawn);
                drawnPainter.setFont(ChipMetrics::chipFont());
                drawnPainter.drawText(QPointF(7.5, 19), text);
                QPainter keptPainter(&repeated);
                keptPainter.setFont(ChipMetrics::chipFont());
                kept->draw(&keptPainter, QPointF(7.5, 19), text);
                QVERIFY2(repeated == drawn, qPrintable(QString("%1 at %2").arg(text.left(20)).arg(scale)));
            }
        }
    }
};

QTEST_MAIN(TagDelegateTest)
#include "tst_vltagdelegate.moc"
