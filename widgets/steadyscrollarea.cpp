// SPDX-License-Identifier: MIT
#include "widgets/steadyscrollarea.h"

#include <QEvent>
#include <QLayout>
#include <QResizeEvent>
#include <QScrollBar>

SteadyScrollArea::SteadyScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
}

SteadyScrollArea::~SteadyScrollArea() = default;

void SteadyScrollArea::resizeEvent(QResizeEvent* event)
{
    const bool isOtherWidth = event->oldSize().width() != event->size().width();
    if (isOtherWidth && m_wasLaidOut)
        chooseKeptItem();
    QScrollArea::resizeEvent(event);
    if (isOtherWidth && isVisible())
        keepItem();
}

/// A resize of a hidden area reaches its content when that is shown.
void SteadyScrollArea::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    keepItem();
    m_wasLaidOut = true;
}

int SteadyScrollArea::topOf(const Item& item) const
{
    return item.view->viewport()->mapTo(viewport(), item.view->visualRect(item.index).topLeft()).y();
}

bool SteadyScrollArea::isShown(const Item& item) const
{
    return item.view && item.index.isValid() && item.view->isVisible() && widget()->isAncestorOf(item.view);
}

bool SteadyScrollArea::isInView(const Item& item) const
{
    const int top = topOf(item);
    return top + item.view->visualRect(item.index).height() > 0 && top < viewport()->height();
}

void SteadyScrollArea::chooseKeptItem()
{
    const Item current = currentItem();
    const bool nothingHappened = isShown(m_kept) && topOf(m_kept) == m_leftTop && current.index == m_current;
    if (nothingHappened)
        return;
    m_current = current.index;
    m_kept = isShown(current) && isInView(current) ? current : topmostItem();
    m_wantedTop = isShown(m_kept) ? topOf(m_kept) : 0;
}

void SteadyScrollArea::keepItem()
{
    layOutContent();
    if (!isShown(m_kept))
        return;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + topOf(m_kept) - m_wantedTop);
    m_leftTop = topOf(m_kept);
}

/// From the views outwards: each gives what is around it its new height.
void SteadyScrollArea::layOutContent()
{
    for (QObject* child : widget()->children()) {
        const auto* view = qobject_cast<QWidget*>(child);
        if (view && view->layout() && view->isVisible())
            view->layout()->activate();
    }
    if (widget()->layout())
        widget()->layout()->activate();
    QEvent request(QEvent::LayoutRequest);
    QScrollArea::event(&request);
}
