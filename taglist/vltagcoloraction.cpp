// SPDX-License-Identifier: MIT
#include "taglist/vltagcoloraction.h"

#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/vltagcolorwidget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QWidgetAction>

#include <algorithm>

namespace {
/// A menu leaves the focus where it is when the mouse makes another entry active.
bool isActiveEntryOfItsMenu(QWidget* widget)
{
    const auto* menu = qobject_cast<QMenu*>(widget->parentWidget());
    if (!menu || !menu->activeAction())
        return true;
    const auto* action = qobject_cast<QWidgetAction*>(menu->activeAction());
    return action && action->defaultWidget() == widget;
}
}  // namespace

VLTagColorAction::VLTagColorAction(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_MouseTracking);
    setFocusPolicy(Qt::StrongFocus);
    addSwatches();
}

void VLTagColorAction::setSelected(int index)
{
    for (int i = 0; i < m_swatches.size(); ++i)
        m_swatches.at(i)->setSelected(i == index);
}

void VLTagColorAction::slotColorClicked()
{
    auto* clicked = qobject_cast<VLTagColorWidget*>(sender());
    for (VLTagColorWidget* swatch : qAsConst(m_swatches)) {
        if (swatch != clicked)
            swatch->setSelected(false);
    }
    emit signalColorClicked(m_swatches.indexOf(clicked));
}

void VLTagColorAction::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason)
        highlight(std::max(selectedIndex(), 0));
}

void VLTagColorAction::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    highlight(-1);
}

void VLTagColorAction::keyPressEvent(QKeyEvent* event)
{
    if (m_swatches.isEmpty() || !isActiveEntryOfItsMenu(this)) {
        event->ignore();
        return;
    }
    const int step = isRightToLeft() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        highlight(std::max(m_highlighted - step, 0));
        break;
    case Qt::Key_Right:
        highlight(m_highlighted + step);
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Space:
        if (m_highlighted >= 0)
            m_swatches.at(m_highlighted)->pick();
        break;
    default:
        event->ignore();
    }
}

void VLTagColorAction::addSwatches()
{
    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(4);
    layout->setContentsMargins(20, 0, 20, 0);
    for (const TagColorEntry& entry : VLTagManagerSingleton::instance()->tagColors()) {
        auto* swatch = new VLTagColorWidget(QColor(entry.color), this);
        connect(swatch, &VLTagColorWidget::signalColorClicked, this, &VLTagColorAction::slotColorClicked);
        m_swatches.append(swatch);
        layout->addWidget(swatch);
    }
    layout->addStretch();
}

int VLTagColorAction::selectedIndex() const
{
    const auto found = std::find_if(m_swatches.cbegin(), m_swatches.cend(),
                                    [](const VLTagColorWidget* swatch) { return swatch->isSelected(); });
    return found == m_swatches.cend() ? -1 : int(found - m_swatches.cbegin());
}

void VLTagColorAction::highlight(int index)
{
    m_highlighted = std::min(index, m_swatches.size() - 1);
    for (int i = 0; i < m_swatches.size(); ++i)
        m_swatches.at(i)->setHighlighted(i == m_highlighted);
}
