// SPDX-License-Identifier: MIT
#include "host/app/widgets/elidedlabel.h"

#include "host/app/widgets/plaintooltip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int widestHint = 400;        // logical pixels; a longer text does not ask for more
constexpr int narrowestHint = 24;      // logical pixels
constexpr int longestMeasured = 1000;  // UTF-16 units; no line shows more

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setText(const QString& text)
{
    // Line feeds and tabs of a name are shown as spaces.
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

bool ElidedLabel::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && shownText() != m_text) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(m_text), this);
        return true;
    }
    return QWidget::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shownText());
}

QString ElidedLabel::shownText() const
{
    QString shown = m_text;
    if (shown.size() > longestMeasured)
        shown = shown.left(longestMeasured) + QChar(0x2026);
    return fontMetrics().elidedText(shown, Qt::ElideRight, contentsRect().width());
}
