// SPDX-License-Identifier: MIT
#include "host/app/elidedlabel.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int widestHint = 400;       // logical pixels; a longer text does not ask for more
constexpr int narrowestHint = 24;     // logical pixels
constexpr int longestMeasured = 500;  // characters; no line shows more

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setText(const QString& text)
{
    // The line feeds and tabs of a name are spaces here.
    m_text = text.simplified();
    setAccessibleName(m_text);
    updateGeometry();
    update();
}

QSize ElidedLabel::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(m_text.left(longestMeasured));
    return {std::min(width + 1, widestHint), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {narrowestHint, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QString shown = m_text;
    if (shown.size() > longestMeasured)
        shown = shown.left(longestMeasured / 2) + QChar(0x2026) + shown.right(longestMeasured / 2);
    shown = fontMetrics().elidedText(shown, Qt::ElideMiddle, contentsRect().width());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}
