// SPDX-License-Identifier: MIT
#include "host/app/widgets/wrappedlabel.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int widestHint = 400;     // logical pixels; a longer text does not ask for more
constexpr int narrowestHint = 100;  // logical pixels

}  // namespace

WrappedLabel::WrappedLabel(QWidget* parent)
    : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void WrappedLabel::setText(const QString& text)
{
    // Line feeds and tabs of a name are shown as spaces.
    m_text = text.simplified();
    setAccessibleName(m_text);
    updateGeometry();
    update();
}

QSize WrappedLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    const int width = fontMetrics().horizontalAdvance(m_text) + 1 + margins.left() + margins.right();
    const int shown = std::min(width, widestHint);
    return {shown, heightForWidth(shown)};
}

QSize WrappedLabel::minimumSizeHint() const
{
    const QMargins margins = contentsMargins();
    return {narrowestHint, fontMetrics().height() + margins.top() + margins.bottom()};
}

int WrappedLabel::heightForWidth(int width) const
{
    QTextLayout layout(m_text, font());
    const QMargins margins = contentsMargins();
    return static_cast<int>(std::ceil(layOut(layout, width))) + margins.top() + margins.bottom();
}

void WrappedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QTextLayout layout(m_text, font());
    const qreal height = layOut(layout, width());
    const QRect area = contentsRect();
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, QPointF(area.left(), area.top() + std::max(0.0, (area.height() - height) / 2)));
}

qreal WrappedLabel::layOut(QTextLayout& layout, int width) const
{
    const QMargins margins = contentsMargins();
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(1, width - margins.left() - margins.right()));
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
    return height;
}
