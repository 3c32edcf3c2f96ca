// SPDX-License-Identifier: MIT
#include "widgets/fixedsize.h"

#include <QEvent>
#include <QWidget>

FixedSize::FixedSize(QWidget* widget, QSize size)
    : QObject(widget)
    , m_widget(widget)
    , m_size(size)
{
    widget->setFixedSize(size);
    widget->installEventFilter(this);
}

FixedSize::~FixedSize() = default;

bool FixedSize::eventFilter(QObject* watched, QEvent* event)
{
    // Each comes after the style has written its limits into the widget, at the first polish or a later one.
    const bool mayHaveChanged =
        event->type() == QEvent::Show || event->type() == QEvent::Resize || event->type() == QEvent::StyleChange;
    if (watched == m_widget && mayHaveChanged &&
        (m_widget->minimumSize() != m_size || m_widget->maximumSize() != m_size))
        m_widget->setFixedSize(m_size);
    return QObject::eventFilter(watched, event);
}
