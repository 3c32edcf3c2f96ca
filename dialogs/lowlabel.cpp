// SPDX-License-Identifier: MIT
#include "dialogs/lowlabel.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

/// The font, or a smaller one in which the glyphs of \a text are no taller than \a height (logical pixels).
QFont fittedFont(QFont font, const QString& text, double height)
{
    const double needed = QFontMetricsF(font).tightBoundingRect(text).height();
    if (needed > height)
        font.setPixelSize(std::max(1, int(font.pixelSize() * height / needed)));
    return font;
}

}  // namespace

void LowLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.setFont(fittedFont(font(), text(), height()));
    const QFontMetricsF metrics(painter.font());
    const double scale = devicePixelRatioF();
    const double centred = (height() + metrics.ascent() - metrics.descent()) / 2;
    const double lowest = height() - metrics.tightBoundingRect(text()).bottom();
    // On a whole device pixel, or the lowest row of the glyphs would be cut by the edge.
    const double baseline = std::floor(std::min(centred, lowest) * scale) / scale;
    const QRectF line(0, baseline - metrics.ascent(), width(), metrics.height());
    painter.drawText(line, int(alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignTop | Qt::TextDontClip, text());
}
