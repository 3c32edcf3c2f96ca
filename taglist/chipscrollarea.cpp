// SPDX-License-Identifier: MIT
#include "taglist/chipscrollarea.h"

#include "taglist/chipview.h"

#include <QEvent>

namespace {

/// Distance in logical pixels in which two lists of chips are told apart: less than the height of any.
constexpr int probeStep = 16;

ChipView* chipViewAround(QWidget* widget)
{
    while (widget && !qobject_cast<ChipView*>(widget))
        widget = widget->parentWidget();
    return qobject_cast<ChipView*>(widget);
}

}  // namespace

ChipScrollArea::ChipScrollArea(QWidget* parent)
    : SteadyScrollArea(parent)
{
}

ChipScrollArea::~ChipScrollArea() = default;

void ChipScrollArea::scrollContentsBy(int dx, int dy)
{
    SteadyScrollArea::scrollContentsBy(dx, dy);
    if (underMouse())
        ChipView::followPointerSoon();
}

bool ChipScrollArea::event(QEvent* event)
{
    const bool handled = SteadyScrollArea::event(event);
    if (event->type() == QEvent::LayoutRequest && underMouse())
        ChipView::followPointerSoon();
    return handled;
}

SteadyScrollArea::Item ChipScrollArea::currentItem() const
{
    auto* view = qobject_cast<ChipView*>(focusWidget());
    return view ? Item{view, view->currentIndex()} : Item();
}

SteadyScrollArea::Item ChipScrollArea::topmostItem() const
{
    const QPoint corner = widget()->mapFrom(viewport(), QPoint(viewport()->width() / 2, 0));
    for (int y = qMax(corner.y(), 0); y < corner.y() + viewport()->height();) {
        ChipView* view = chipViewAround(widget()->childAt(corner.x(), y));
        if (!view) {
            y += probeStep;
            continue;
        }
        const QModelIndex index = view->firstChipFrom(view->viewport()->mapFrom(widget(), QPoint(0, y)).y());
        if (index.isValid())
            return {view, index};
        y = view->mapTo(widget(), QPoint(0, view->height())).y();
    }
    return {};
}
