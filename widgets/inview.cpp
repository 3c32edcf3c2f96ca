// SPDX-License-Identifier: MIT
#include "widgets/inview.h"

#include <QEvent>
#include <QWidget>

bool isInView(const QWidget* widget)
{
    QRect rect = widget->rect();
    while (!rect.isEmpty() && !widget->isWindow() && widget->parentWidget()) {
        rect = rect.translated(widget->pos()) & widget->parentWidget()->rect();
        widget = widget->parentWidget();
    }
    return !rect.isEmpty();
}

bool isIdlePaintRequest(const QEvent* event, const QWidget* widget)
{
    return event->type() == QEvent::UpdateLater && !isInView(widget);
}
