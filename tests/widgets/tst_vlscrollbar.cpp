// SPDX-License-Identifier: MIT
#include "widgets/vlscrollbar.h"

#include <vlskinsetting.h>

#include <QGraphicsOpacityEffect>
#include <QScrollArea>
#include <QTest>

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
    {
        content->setMinimumHeight(contentHeight);
        area.setFrameShape(QFrame::NoFrame);
        area.setWidget(content);
        area.setWidgetResizable(true);
        area.resize(300, 200);
        area.show();
        bar = new VLScrollBar(&area);
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
    void takesOverTheAreasState();
    void contentThatFitsNeverShowsIt();
    void barAndAreaMoveEachOther();
    void rangeStartsAtZero();
    void fadesInAndOut();
    void pointerThatComesBackKeepsItVisible();
    void widensUnderThePointer();
    void interruptedWideningDoesNotDrift();
    void keepsToTheRightEdge();
    void survivesTheArea();
    void diesInTheMiddleOfAnimations();
    void canFollowAnotherArea();
};

void TestScrollBar::takesOverTheAreasState()
{
    QScrollArea area;
    auto* content = new QWidget;
    content->setMinimumHeight(1000);
    area.setFrameShape(QFrame::NoFrame);
    area.setWidget(content);
    area.setWidgetResizable(true);
    area.resize(300, 200);
    area.show();
    QTRY_VERIFY(area.verticalScrollBar()->maximum() > 0);
    area.verticalScrollBar()->setValue(120);
    auto* bar = new VLScrollBar(&area);
    bar->setUp(&area, 0, 0);
    QVERIFY(bar->isHidden());
    QCOMPARE(bar->maximum(), area.verticalScrollBar()->maximum());
    QCOMPARE(bar->value(), 120);
    QCOMPARE(bar->geometry(), restingPlace);
    QCOMPARE(area.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(bar->styleSheet().contains(VLSkinSetting::GetInstance()->GetTreeScrollHandleColor().name()));
}

void TestScrollBar::contentThatFitsNeverShowsIt()
{
    OverlaidArea overlaid(50);
    QCOMPARE(overlaid.bar->maximum(), 0);
    send(&overlaid.area, QEvent::Enter);
    QVERIFY(overlaid.bar->isHidden());
    overlaid.content->setMinimumHeight(1000);
    QTRY_VERIFY(overlaid.bar->maximum() > 0);
    send(&overlaid.area, QEvent::Enter);
    QVERIFY(overlaid.bar->isVisible());
    overlaid.content->setMinimumHeight(50);
    QTRY_VERIFY(overlaid.bar->isHidden());
}

void TestScrollBar::barAndAreaMoveEachOther()
{
    OverlaidArea overlaid(1000);
    QTRY_COMPARE(overlaid.bar->maximum(), 800);
    overlaid.bar->setValue(300);
    QCOMPARE(overlaid.area.verticalScrollBar()->value(), 300);
    overlaid.area.verticalScrollBar()->setValue(70);
    QCOMPARE(overlaid.bar->value(), 70);
    QCOMPARE(overlaid.bar->pageStep(), overlaid.area.verticalScrollBar()->pageStep());
}

void TestScrollBar::rangeStartsAtZero()
{
    VLScrollBar alone;
    alone.resize(5, 100);
    alone.slot_rangeChanged(7, 51);
    QCOMPARE(alone.minimum(), 0);
    QCOMPARE(alone.maximum(), 51);
    QCOMPARE(alone.pageStep(), 113);
}

void TestScrollBar::fadesInAndOut()
{
    OverlaidArea overlaid(1000);
    QTRY_COMPARE(overlaid.bar->maximum(), 800);
    send(&overlaid.area, QEvent::Enter);
    QVERIFY(overlaid.bar->isVisible());
    QTRY_COMPARE(overlaid.opacity(), 0.6);
    send(&overlaid.area, QEvent::Leave);
    QVERIFY(overlaid.bar->isVisible());
    QTRY_VERIFY(overlaid.bar->isHidden());
    send(&overlaid.area, QEvent::Enter);
    send(&overlaid.area, QEvent::Leave);
    QTRY_VERIFY(overlaid.bar->isHidden());
    QCOMPARE(overlaid.opacity(), 0.0);
}

void TestScrollBar::pointerThatComesBackKeepsItVisible()
{
    OverlaidArea overlaid(1000);
    QTRY_COMPARE(overlaid.bar->maximum(), 800);
    send(&overlaid.area, QEvent::Enter);
    send(&overlaid.area, QEvent::Leave);
    send(&overlaid.area, QEvent::Enter);
    QTRY_COMPARE(overlaid.opacity(), 0.6);
    QVERIFY(overlaid.bar->isVisible());
}

void TestScrollBar::widensUnderThePointer()
{
    OverlaidArea overlaid(1000);
    send(overlaid.bar, QEvent::Enter);
    QTRY_COMPARE(overlaid.bar->geometry(), QRect(300 - 12, 1, 8, 198));
    QTRY_COMPARE(overlaid.opacity(), 1.0);
    send(overlaid.bar, QEvent::Leave);
    QTRY_COMPARE(overlaid.bar->geometry(), restingPlace);
    QTRY_COMPARE(overlaid.opacity(), 0.6);
}

void TestScrollBar::interruptedWideningDoesNotDrift()
{
    OverlaidArea overlaid(1000);
    for (int i = 0; i < 20; ++i) {
        send(overlaid.bar, QEvent::Enter);
        send(overlaid.bar, QEvent::Leave);
    }
    QTRY_COMPARE(overlaid.opacity(), 0.6);
    QTRY_COMPARE(overlaid.bar->geometry(), restingPlace);
}

void TestScrollBar::keepsToTheRightEdge()
{
    QWidget page;
    page.resize(500, 400);
    auto* area = new QScrollArea(&page);
    area->setGeometry(40, 30, 200, 300);
    auto* bar = new VLScrollBar(&page);
    bar->setUp(area, 40, 30);
    page.show();
    QCOMPARE(bar->geometry(), QRect(40 + 200 - 9, 31, 5, 298));
    area->resize(250, 310);
    QCOMPARE(bar->geometry(), QRect(40 + 250 - 9, 31, 5, 308));
    bar->move(0, 0);
    send(area, QEvent::Leave);
    QCOMPARE(bar->geometry(), QRect(40 + 250 - 9, 31, 5, 308));
}

void TestScrollBar::survivesTheArea()
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

void TestScrollBar::diesInTheMiddleOfAnimations()
{
    OverlaidArea overlaid(1000);
    QTRY_COMPARE(overlaid.bar->maximum(), 800);
    send(&overlaid.area, QEvent::Enter);
    send(overlaid.bar, QEvent::Enter);
    send(&overlaid.area, QEvent::Leave);
    delete overlaid.bar;
    overlaid.area.verticalScrollBar()->setValue(10);
    send(&overlaid.area, QEvent::Enter);
    QVERIFY(!overlaid.bar);
}

void TestScrollBar::canFollowAnotherArea()
{
    OverlaidArea first(1000);
    OverlaidArea second(700);
    QTRY_COMPARE(second.bar->maximum(), 500);
    first.bar->setUp(&second.area, 0, 0);
    first.area.verticalScrollBar()->setValue(400);
    QCOMPARE(first.bar->value(), 0);
    QCOMPARE(first.bar->maximum(), 500);
    first.bar->setValue(33);
    QCOMPARE(second.area.verticalScrollBar()->value(), 33);
    QCOMPARE(first.area.verticalScrollBar()->value(), 400);
}

QTEST_MAIN(TestScrollBar)
#include "tst_vlscrollbar.moc"
