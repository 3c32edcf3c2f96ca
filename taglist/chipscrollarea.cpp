// SPDX-License-Identifier: MIT
#include "taglist/chipscrollarea.h"

#include "taglist/chipview.h"

#include <QEvent>
#include <QLayout>
#include <QResizeEvent>
#include <QScrollBar>

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
    : QScrollArea(parent)
{
}

ChipScrollArea::~ChipScrollArea() = default;

void ChipScrollArea::resizeEvent(QResizeEvent* event)
{
    const bool isOtherWidth = event->oldSize().width() != event->size().width();
    if (isOtherWidth && m_wasLaidOut)
        chooseKeptChip();
    QScrollArea::resizeEvent(event);
    if (isOtherWidth && isVisible())
        keepChip();
}

/// A resize of a hidden area reaches its content when that is shown.
void ChipScrollArea::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    keepChip();
    m_wasLaidOut = true;
}

void ChipScrollArea::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    if (underMouse())
        ChipView::followPointerSoon();
}

bool ChipScrollArea::event(QEvent* event)
{
    const bool handled = QScrollArea::event(event);
    if (event->type() == QEvent::LayoutRequest && underMouse())
        ChipView::followPointerSoon();
    return handled;
}

int ChipScrollArea::topOf(const Chip& chip) const
{
    return chip.view->viewport()->mapTo(viewport(), chip.view->visualRect(chip.index).topLeft()).y();
}

bool ChipScrollArea::isShown(const Chip& chip) const
{
    return chip.view && chip.index.isValid() && chip.view->isVisible() && widget()->isAncestorOf(chip.view);
}

/// The chip that a person did something to last.
ChipScrollArea::Chip ChipScrollArea::currentChip() const
{
    auto* view = qobject_cast<ChipView*>(focusWidget());
    return view ? Chip{view, view->currentIndex()} : Chip();
}

ChipScrollArea::Chip ChipScrollArea::topmostChip() const
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

void ChipScrollArea::chooseKeptChip()
{
    const Chip current = currentChip();
    const bool nothingHappened = isShown(m_kept) && topOf(m_kept) == m_leftTop && current.index == m_current;
    if (nothingHappened)
        return;
    m_current = current.index;
    const auto isInView = [this](const Chip& chip) {
        const int top = topOf(chip);
        return top + chip.view->visualRect(chip.index).height() > 0 && top < viewport()->height();
    };
    m_kept = isShown(current) && isInView(current) ? current : topmostChip();
    m_wantedTop = isShown(m_kept) ? topOf(m_kept) : 0;
}

void ChipScrollArea::keepChip()
{
    layOutContent();
    if (!isShown(m_kept))
        return;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + topOf(m_kept) - m_wantedTop);
    m_leftTop = topOf(m_kept);
}

/// From the lists outwards: each gives what is around it its new height.
void ChipScrollArea::layOutContent()
{
    for (QObject* child : widget()->children()) {
        const auto* list = qobject_cast<QWidget*>(child);
        if (list && list->layout() && list->isVisible())
            list->layout()->activate();
    }
    if (widget()->layout())
        widget()->layout()->activate();
    QEvent request(QEvent::LayoutRequest);
    QScrollArea::event(&request);
}
