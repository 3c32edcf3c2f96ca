// SPDX-License-Identifier: MIT
#include "host/app/framegeometry.h"
#include "host/app/windowgeometry.h"

#include <QTest>

/// The arithmetic of the frame, without a window.
class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void edgesUnderThePointer_data();
    void edgesUnderThePointer();
    void resizingKeepsTheOppositeEdge_data();
    void resizingKeepsTheOppositeEdge();
    void windowIsPlacedWhereItCanBeReached_data();
    void windowIsPlacedWhereItCanBeReached();
};

void TestFrame::edgesUnderThePointer_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<Qt::Edges>("edges");
    QTest::addColumn<Qt::CursorShape>("cursor");

    // A frame of 200 by 100, edges 5 wide, corners 16 long.
    const auto row = [](const char* name, QPoint pos, Qt::Edges edges, Qt::CursorShape cursor) {
        QTest::newRow(name) << pos << edges << cursor;
    };
    row("inside", {100, 50}, {}, Qt::ArrowCursor);
    row("just inside the left edge", {5, 50}, {}, Qt::ArrowCursor);
    row("outside", {-1, 50}, {}, Qt::ArrowCursor);
    row("left", {4, 50}, Qt::LeftEdge, Qt::SizeHorCursor);
    row("right", {195, 50}, Qt::RightEdge, Qt::SizeHorCursor);
    row("top", {100, 0}, Qt::TopEdge, Qt::SizeVerCursor);
    row("bottom", {100, 95}, Qt::BottomEdge, Qt::SizeVerCursor);
    row("top left", {0, 0}, Qt::TopEdge | Qt::LeftEdge, Qt::SizeFDiagCursor);
    row("top left along the top", {15, 2}, Qt::TopEdge | Qt::LeftEdge, Qt::SizeFDiagCursor);
    row("past the corner along the top", {16, 2}, Qt::TopEdge, Qt::SizeVerCursor);
    row("bottom right", {199, 99}, Qt::BottomEdge | Qt::RightEdge, Qt::SizeFDiagCursor);
    row("bottom left along the left", {1, 84}, Qt::BottomEdge | Qt::LeftEdge, Qt::SizeBDiagCursor);
    row("before the corner along the left", {1, 83}, Qt::LeftEdge, Qt::SizeHorCursor);
}

void TestFrame::edgesUnderThePointer()
{
    QFETCH(QPoint, pos);
    QFETCH(Qt::Edges, edges);
    QFETCH(Qt::CursorShape, cursor);

    QCOMPARE(FrameGeometry::edgesAt({200, 100}, pos, 5, 16), edges);
    QCOMPARE(FrameGeometry::cursorShape(edges), cursor);
}

void TestFrame::resizingKeepsTheOppositeEdge_data()
{
    QTest::addColumn<Qt::Edges>("edges");
    QTest::addColumn<QPoint>("delta");
    QTest::addColumn<QRect>("expected");

    // From 200 by 100 at (50, 60), at least 150 by 80.
    QTest::newRow("right wider") << Qt::Edges(Qt::RightEdge) << QPoint(30, 9) << QRect(50, 60, 230, 100);
    QTest::newRow("left to the minimum") << Qt::Edges(Qt::LeftEdge) << QPoint(500, 0) << QRect(100, 60, 150, 100);
    QTest::newRow("top to the minimum") << Qt::Edges(Qt::TopEdge) << QPoint(0, 500) << QRect(50, 80, 200, 80);
    QTest::newRow("corner") << (Qt::BottomEdge | Qt::LeftEdge) << QPoint(-10, 20) << QRect(40, 60, 210, 120);
}

void TestFrame::resizingKeepsTheOppositeEdge()
{
    QFETCH(Qt::Edges, edges);
    QFETCH(QPoint, delta);
    QFETCH(QRect, expected);

    QCOMPARE(FrameGeometry::resized(QRect(50, 60, 200, 100), edges, delta, QSize(150, 80)), expected);
}

void TestFrame::windowIsPlacedWhereItCanBeReached_data()
{
    QTest::addColumn<QRect>("kept");
    QTest::addColumn<QRect>("expected");

    // Screens of 1000 by 800 and, to the right of it, 600 by 500; 400 by 300 for a window of which nothing is known.
    const QRect middle(300, 250, 400, 300);
    QTest::newRow("nothing kept") << QRect() << middle;
    QTest::newRow("on the first screen") << QRect(10, 20, 500, 400) << QRect(10, 20, 500, 400);
    QTest::newRow("partly beyond the left edge") << QRect(-300, 20, 500, 400) << QRect(-300, 20, 500, 400);
    QTest::newRow("too little of it in sight") << QRect(-450, 20, 500, 400) << middle;
    QTest::newRow("top out of reach") << QRect(10, -100, 500, 400) << middle;
    QTest::newRow("on a screen that is gone") << QRect(3000, 20, 500, 400) << middle;
    QTest::newRow("larger than the screen") << QRect(0, 0, 3000, 2000) << QRect(0, 0, 1000, 800);
}

void TestFrame::windowIsPlacedWhereItCanBeReached()
{
    QFETCH(QRect, kept);
    QFETCH(QRect, expected);

    const QVector<QRect> screens = {QRect(0, 0, 1000, 800), QRect(1000, 0, 600, 500)};
    QCOMPARE(placedOnScreen(kept, QSize(400, 300), screens), expected);
}

QTEST_GUILESS_MAIN(TestFrame)
#include "tst_frame.moc"
