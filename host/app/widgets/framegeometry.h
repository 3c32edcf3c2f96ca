// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <Qt>

#include <QtGlobal>

/// Geometry of a frame that is resized by its edges. All lengths in logical pixels.
namespace FrameGeometry {

/// The edges that a press at \a pos drags: the edge within \a border, and both edges of a corner within \a corner along
/// an edge. None inside or outside the frame.
[[nodiscard]] Qt::Edges edgesAt(const QSize& frame, const QPoint& pos, int border, int corner);

/// The cursor for dragging these edges.
[[nodiscard]] Qt::CursorShape cursorShape(Qt::Edges edges);

/// \a start with \a edges moved by \a delta; the opposite edges are fixed, also at the \a minimum size.
[[nodiscard]] QRect resized(const QRect& start, Qt::Edges edges, const QPoint& delta, const QSize& minimum);

}  // namespace FrameGeometry
