// SPDX-License-Identifier: MIT
#include "pages/dragscroller.h"

#include "taglist/tagdrag.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDragEnterEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimerEvent>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int edgeHeight = 48;  // logical pixels in which the area scrolls
constexpr int stepMs = 16;
constexpr int longestStep = 14;  // logical pixels, at the edge itself: about a row of tiles in a tenth of a second

}  // namespace

DragScroller::DragScroller(QScrollArea* area)
    : QObject(area)
    , m_area(area)
{
    // Between the tiles, too, a drag goes on; nothing can be dropped there.
    area->viewport()->setAcceptDrops(true);
    area->viewport()->installEventFilter(this);
}

DragScroller::~DragScroller() = default;

void DragScroller::setDragTarget(QWidget* target, const QMimeData* data)
{
    m_target = target;
    m_data = data;
    if (!target)
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(stepMs, this);
}

bool DragScroller::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
        auto* drag = static_cast<QDragMoveEvent*>(event);
        const bool isChip = isChipDrag(drag);
        // Move events follow only when the enter event was accepted. A drop is accepted while the area scrolls only:
        // what lies below the pointer changes then without a move.
        drag->setAccepted(isChip && (event->type() == QEvent::DragEnter || stepAt(drag->pos().y()) != 0));
        if (isChip)
            setDragTarget(m_area->viewport(), drag->mimeData());
        return true;
    }
    if (event->type() == QEvent::DragLeave || event->type() == QEvent::Drop) {
        setDragTarget(nullptr, nullptr);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void DragScroller::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return;
    // A target that is deleted or hidden gets no leave event.
    if (!m_target || !m_target->isVisible()) {
        setDragTarget(nullptr, nullptr);
        return;
    }
    const QPoint pointer = m_area->viewport()->mapFromGlobal(QCursor::pos());
    QScrollBar* bar = m_area->verticalScrollBar();
    const int before = bar->value();
    if (m_area->viewport()->rect().contains(pointer))
        bar->setValue(before + stepAt(pointer.y()));
    if (bar->value() != before)
        moveDrag();
}

/// Logical pixels by which the area scrolls when the pointer is at \a y of its viewport; below zero upwards.
int DragScroller::stepAt(int y) const
{
    const auto step = [](int distance) {
        return distance >= edgeHeight ? 0 : 1 + (longestStep - 1) * (edgeHeight - std::max(0, distance)) / edgeHeight;
    };
    const int up = step(y);
    return up > 0 ? -up : step(m_area->viewport()->height() - 1 - y);
}

/// The pointer rests while the tiles move below it: without a move event the old tile would get the drop.
void DragScroller::moveDrag() const
{
    QWindow* window = m_area->window()->windowHandle();
    if (!window || !m_data)
        return;
    QDragMoveEvent move(window->mapFromGlobal(QCursor::pos()), Qt::MoveAction, m_data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
}
