// SPDX-License-Identifier: MIT
#include "taglist/vltagcolorwidget.h"

#include <QPainter>

namespace {
// Logical pixels.
constexpr int swatchSize = 21;
constexpr int inset = 2;
}  // namespace

VLTagColorWidget::VLTagColorWidget(const QColor& color, QWidget* parent)
    : QWidget(parent)
    , m_color(color)
{
    setAttribute(Qt::WA_MouseTracking);
    setFixedSize(swatchSize, swatchSize);
}

void VLTagColorWidget::setSelected(bool selected)
{
    m_selected = selected;
    update();
}

void VLTagColorWidget::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
    update();
}

void VLTagColorWidget::pick()
{
    setSelected(true);
    emit signalColorClicked();
}

void VLTagColorWidget::enterEvent(QEvent* event)
{
    Q_UNUSED(event)
    m_hovered = true;
}

void VLTagColorWidget::leaveEvent(QEvent* event)
{
    Q_UNUSED(event)
    m_hovered = false;
}

void VLTagColorWidget::mouseReleaseEvent(QMouseEvent* event)
{
    Q_UNUSED(event)
    pick();
}

void VLTagColorWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QRect circle = rect().adjusted(inset, inset, -inset, -inset);
    if (m_selected) {
        painter.setPen(Qt::white);
    } else if (!m_hovered && !m_highlighted) {
        painter.setPen(Qt::NoPen);
        circle.adjust(inset, inset, -inset, -inset);
    }
    painter.setBrush(m_color);
    const int radius = circle.width() / 2;
    painter.drawRoundedRect(circle, radius, radius);
}
