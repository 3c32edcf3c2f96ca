// SPDX-License-Identifier: MIT
#include "host/app/widgets/framegeometry.h"
#include "host/app/widgets/windowgeometry.h"

#include <QTest>

/// The arithmetic of the frame, without a window.
class TestFrame : public QObject
{
    Q_OBJECT

private slots:
    void edgesUnderThePointer()
    {
        struct Case
        {
            QPoint pos;
            Qt::Edges edges;
            Qt::CursorShape cursor;
        };
        // A frame of 200 by 100, edges 5 wide, corners 16 long.
        const QVector<Case> cases = {{{100, 50}, {}, Qt::ArrowCursor},
                                     {{-1, 50}, {}, Qt::ArrowCursor},
                                     {{4, 50}, Qt::LeftEdge, Qt::SizeHorCursor},
                                     {{195, 50}, Qt::RightEdge, Qt::SizeHorCursor},
                                     {{100, 95}, Qt::BottomEdge, Qt::SizeVerCursor},
                                     {{15, 2}, Qt::TopEdge | Qt::LeftEdge, Qt::SizeFDiagCursor},
                                     {{16, 2}, Qt::TopEdge, Qt::SizeVerCursor},
                                     {{1, 84}, Qt::BottomEdge | Qt::LeftEdge, Qt::SizeBDiagCursor},
                                     {{1, 83}, Qt::LeftEdge, Qt::SizeHorCursor}};
        for (const auto& [pos, edges, cursor] : cases) {
            const QByteArray place = QByteArray::number(pos.x()) + ' ' + QByteArray::number(pos.y());
            QVERIFY2(FrameGeometry::edgesAt({200, 100}, pos, 5, 16) == edges, place);
            QVERIFY2(FrameGeometry::cursorShape(edges) == cursor, place);
        }
    }

    void resizingKeepsTheOppositeEdge()
    {
        // From 200 by 100 at (50, 60), at least 150 by 80.
        const auto resized = [](Qt::Edges edges, const QPoint& delta) {
            return FrameGeometry::resized(QRect(50, 60, 200, 100), edges, delta, QSize(150, 80));
        };
        QCOMPARE(resized(Qt::RightEdge, {30, 9}), QRect(50, 60, 230, 100));
        QCOMPARE(resized(Qt::LeftEdge, {500, 0}), QRect(100, 60, 150, 100));
        QCOMPARE(resized(Qt::TopEdge, {0, 500}), QRect(50, 80, 200, 80));
        QCOMPARE(resized(Qt::BottomEdge | Qt::LeftEdge, {-10, 20}), QRect(40, 60, 210, 120));
    }

    void windowIsPlacedWhereItCanBeReached()
    {
        // Screens of 1000 by 800 and, to the right of it, 600 by 500; 400 by 300 for a window of which nothing is
        // known.
        const auto placed = [](const QRect& kept) {
            return placedOnScreen(kept, QSize(400, 300), {QRect(0, 0, 1000, 800), QRect(1000, 0, 600, 500)});
        };
        for (const QRect& reachable : {QRect(10, 20, 500, 400), QRect(-300, 20, 500, 400)})
            QCOMPARE(placed(reachable), reachable);
        for (const QRect& outOfReach :
             {QRect(), QRect(-450, 20, 500, 400), QRect(10, -100, 500, 400), QRect(3000, 20, 500, 400)})
            QCOMPARE(placed(outOfReach), QRect(300, 250, 400, 300));
        QCOMPARE(placed(QRect(0, 0, 3000, 2000)), QRect(0, 0, 1000, 800));

        const QRect screen(1000, 50, 600, 500);
        QCOMPARE(insideScreen(QRect(1300, 60, 400, 300), screen), QRect(1200, 60, 400, 300));
        QCOMPARE(insideScreen(QRect(900, 400, 4000, 300), screen), QRect(1000, 250, 600, 300));
    }
};

QTEST_GUILESS_MAIN(TestFrame)
#include "tst_frame.moc"
