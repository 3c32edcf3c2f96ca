// SPDX-License-Identifier: MIT
#include "pages/vlgrouplabel.h"

#include <QFontMetrics>

namespace {

/// Logical pixels: a tile of 78 less its side margins of 7 each.
constexpr int lineWidthLimit = 64;
constexpr int lineCountLimit = 2;
/// Two lines hold a few dozen characters, so more than this can only be invisible ones; measuring them would take time
/// that grows with the square of their number.
constexpr int measuredLengthLimit = 256;

/// UTF-16 units that belong together at \a pos: two for a surrogate pair.
int unitCountAt(const QString& text, int pos)
{
    const bool isPair = text.at(pos).isHighSurrogate() && pos + 1 < text.size() && text.at(pos + 1).isLowSurrogate();
    return isPair ? 2 : 1;
}

bool fitsOneLine(const QString& text, const QFontMetrics& metrics)
{
    return metrics.boundingRect(text).width() < lineWidthLimit;
}

QString wrapped(QString text, const QFontMetrics& metrics)
{
    if (fitsOneLine(text, metrics))
        return text;
    int lineStart = 0;
    int lineCount = 1;
    for (int pos = 0; pos < text.size();) {
        const int next = pos + unitCountAt(text, pos);
        if (fitsOneLine(text.mid(lineStart, next - lineStart), metrics)) {
            pos = next;
            continue;
        }
        if (lineCount == lineCountLimit)
            return text.left(pos);
        text.insert(pos, QLatin1Char('\n'));
        ++lineCount;
        lineStart = pos;
        pos = next + 1;
    }
    return text;
}

}  // namespace

VLGroupLabel::VLGroupLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

VLGroupLabel::~VLGroupLabel() = default;

void VLGroupLabel::setWrappedText(const QString& text)
{
    if (text == m_source && font() == m_wrappedFont)
        return;
    m_source = text;
    m_wrappedFont = font();
    setText(text.size() < 2 ? text : wrapped(text.left(measuredLengthLimit), fontMetrics()));
}
