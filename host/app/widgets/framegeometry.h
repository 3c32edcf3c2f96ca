// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <Qt>

#include <QtGlobal>

/// The arithmetic of a frame that the user drags by its edges. All lengths in logical pixels.
namespace FrameGeometry {

/// The edges that a press at \a pos takes hold of: within \a border of an edge, or, along an edge, within \a corner of
/// its end, both edges that meet there. None inside the frame or beyond it.
[[nodiscard]] Qt::Edges edgesAt(const QSize& frame, const QPoint& pos, int border, int corner);

/// The pointer that tells the user what dragging these edges does.
[[nodiscard]] Qt::CursorShape cursorShape(Qt::Edges edges);

/// \a start with \a edges moved by \a delta; the opposite edges stay where they are, also at the \a minimum size.
[[nodiscard]] QRect resized(const QRect& start, Qt::Edges edges, const QPoint& delta, const QSize& minimum);

}  // namespace FrameGeometry
