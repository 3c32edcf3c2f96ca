// SPDX-License-Identifier: MIT
#include "host/app/widgets/framegeometry.h"

#include <algorithm>

namespace FrameGeometry {

Qt::Edges edgesAt(const QSize& frame, const QPoint& pos, int border, int corner)
{
    if (!QRect(QPoint(0, 0), frame).contains(pos))
        return {};
    const int right = frame.width() - 1 - pos.x();
    const int bottom = frame.height() - 1 - pos.y();
    if (std::min({pos.x(), pos.y(), right, bottom}) >= border)
        return {};
    Qt::Edges edges;
    const bool onHorizontal = std::min(pos.y(), bottom) < border;
    const bool onVertical = std::min(pos.x(), right) < border;
    const int reachX = onHorizontal ? corner : border;
    const int reachY = onVertical ? corner : border;
    if (std::min(pos.x(), right) < reachX)
        edges |= pos.x() <= right ? Qt::LeftEdge : Qt::RightEdge;
    if (std::min(pos.y(), bottom) < reachY)
        edges |= pos.y() <= bottom ? Qt::TopEdge : Qt::BottomEdge;
    return edges;
}

Qt::CursorShape cursorShape(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    if (edges & (Qt::LeftEdge | Qt::RightEdge))
        return Qt::SizeHorCursor;
    if (edges & (Qt::TopEdge | Qt::BottomEdge))
        return Qt::SizeVerCursor;
    return Qt::ArrowCursor;
}

QRect resized(const QRect& start, Qt::Edges edges, const QPoint& delta, const QSize& minimum)
{
    QRect rect = start;
    if (edges & Qt::LeftEdge)
        rect.setLeft(std::min(start.left() + delta.x(), start.right() + 1 - minimum.width()));
    if (edges & Qt::RightEdge)
        rect.setRight(std::max(start.right() + delta.x(), start.left() - 1 + minimum.width()));
    if (edges & Qt::TopEdge)
        rect.setTop(std::min(start.top() + delta.y(), start.bottom() + 1 - minimum.height()));
    if (edges & Qt::BottomEdge)
        rect.setBottom(std::max(start.bottom() + delta.y(), start.top() - 1 + minimum.height()));
    return rect;
}

}  // namespace FrameGeometry
