// SPDX-License-Identifier: MIT
#include "widgets/vlscrollbar.h"

#include <vlskinsetting.h>

#include <QGraphicsOpacityEffect>
#include <QScrollArea>
#include <QTest>
#include <QWheelEvent>

#include <memory>

namespace {

void send(QObject* receiver, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}

/// A scroll area of 300 by 200 with content of the given height and an overlay bar.
struct OverlaidArea
{
    explicit OverlaidArea(int contentHeight)
        : content(new QWidget)
        , bar(new VLScrollBar(&area))
    {
        content->setMinimumHeight(contentHeight);
        area.setFrameShape(QFrame::NoFrame);
        area.setWidget(content);
        area.setWidgetResizable(true);
        area.resize(300, 200);
        area.show();
        bar->setUp(&area, 0, 0);
    }

    double opacity() const { return qobject_cast<QGraphicsOpacityEffect*>(bar->graphicsEffect())->opacity(); }

    QScrollArea area;
    QWidget* content;
    QPointer<VLScrollBar> bar;
};

const QRect restingPlace(300 - 9, 1, 5, 198);

}  // namespace

class TestScrollBar : public QObject
{
    Q_OBJECT

private slots:
    /// Beside its handle the bar shows what lies below it, at every opacity.
    void onlyTheHandleIsSeen()
    {
        OverlaidArea overlaid(1000);
        overlaid.content->setStyleSheet(QStringLiteral("background-color:#204060;"));
        QTRY_COMPARE(overlaid.bar->maximum(), 800);
        overlaid.bar->show();
        const QColor content = overlaid.area.grab().toImage().pixelColor(10, 190);
        for (const double opacity : {0.0, 0.3, 0.6, 1.0}) {
            qobject_cast<QGraphicsOpacityEffect*>(overlaid.bar->graphicsEffect())->setOpacity(opacity);
            const QImage shown = overlaid.area.grab().toImage();
            for (int x = restingPlace.left(); x <= restingPlace.right(); ++x)
                QCOMPARE(shown.pixelColor(x, 150), content);
            QCOMPARE(shown.pixelColor(restingPlace.center().x(), 20) != content, opacity > 0.0);
        }
    }

    void barAndAreaMoveEachOther()
    {
        OverlaidArea overlaid(1000);
        QTRY_COMPARE(overlaid.bar->maximum(), 800);
        overlaid.bar->setValue(300);
        QCOMPARE(overlaid.area.verticalScrollBar()->value(), 300);
        overlaid.area.verticalScrollBar()->setValue(70);
        QCOMPARE(overlaid.bar->value(), 70);
        QCOMPARE(overlaid.area.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QVERIFY(overlaid.bar->styleSheet().contains(VLSkinSetting::GetInstance()->GetTreeScrollHandleColor().name()));

        VLScrollBar late(&overlaid.area);
        late.setUp(&overlaid.area, 0, 0);
        QVERIFY(late.isHidden());
        QCOMPARE(late.maximum(), 800);
        QCOMPARE(late.value(), 70);
        QCOMPARE(late.geometry(), restingPlace);
        late.slot_rangeChanged(7, 51);
        QCOMPARE(late.minimum(), 0);
        QCOMPARE(late.maximum(), 51);
    }

    void wheelOverTheBarMovesAsFarAsBesideIt()
    {
        OverlaidArea overlaid(1000);
        QTRY_COMPARE(overlaid.bar->maximum(), 800);
        overlaid.bar->show();
        const auto moved = [&overlaid](QWidget* under) {
            overlaid.bar->setValue(0);
            QWheelEvent wheel({1, 1}, under->mapToGlobal(QPoint(1, 1)), {}, {0, -120}, Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(under, &wheel);
            return overlaid.area.verticalScrollBar()->value();
        };
        const int beside = moved(overlaid.area.viewport());
        QVERIFY(beside > 0);
        QCOMPARE(moved(overlaid.bar), beside);
    }

    void fadesInAndOut()
    {
        OverlaidArea overlaid(1000);
        QTRY_COMPARE(overlaid.bar->maximum(), 800);
        send(&overlaid.area, QEvent::Enter);
        QVERIFY(overlaid.bar->isVisible());
        QTRY_COMPARE(overlaid.opacity(), 0.6);
        send(&overlaid.area, QEvent::Leave);
        QVERIFY(overlaid.bar->isVisible());
        QTRY_VERIFY(overlaid.bar->isHidden());
        for (const auto type : {QEvent::Enter, QEvent::Leave, QEvent::Enter})
            send(&overlaid.area, type);
        QTRY_COMPARE(overlaid.opacity(), 0.6);
        QVERIFY2(overlaid.bar->isVisible(), "the pointer came back");
    }

    void widensUnderThePointer()
    {
        OverlaidArea overlaid(1000);
        send(overlaid.bar, QEvent::Enter);
        QTRY_COMPARE(overlaid.bar->geometry(), QRect(300 - 12, 1, 8, 198));
        QTRY_COMPARE(overlaid.opacity(), 1.0);
        // Interrupted ones do not make it drift.
        for (int i = 0; i < 20; ++i) {
            send(overlaid.bar, QEvent::Leave);
            send(overlaid.bar, QEvent::Enter);
        }
        send(overlaid.bar, QEvent::Leave);
        QTRY_COMPARE(overlaid.bar->geometry(), restingPlace);
        QTRY_COMPARE(overlaid.opacity(), 0.6);
    }

    void survivesTheArea()
    {
        QWidget page;
        auto area = std::make_unique<QScrollArea>(&page);
        auto* bar = new VLScrollBar(&page);
        bar->setUp(area.get(), 0, 0);
        bar->setRange(0, 100);
        page.show();
        send(area.get(), QEvent::Enter);
        area.reset();
        bar->setValue(40);
        bar->slot_rangeChanged(0, 60);
        send(bar, QEvent::Enter);
        bar->place();
        QTRY_COMPARE(qobject_cast<QGraphicsOpacityEffect*>(bar->graphicsEffect())->opacity(), 0.6);
        QCOMPARE(bar->maximum(), 60);
    }
};

QTEST_MAIN(TestScrollBar)
#include "tst_vlscrollbar.moc"
