// SPDX-License-Identifier: MIT
#include "taglist/letterlabel.h"

#include <QPainter>
#include <QTextBoundaryFinder>

namespace {

/// What a reader takes for one character, such as a flag of two code points.
QString firstCharacter(const QString& name)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, name);
    const int end = finder.toNextBoundary();
    return end > 0 ? name.left(end) : QString();
}

}  // namespace

LetterLabel::LetterLabel(QWidget* parent, std::function<QString()> firstName)
    : QLabel(parent)
    , m_firstName(std::move(firstName))
{
    setTextFormat(Qt::PlainText);
}

bool LetterLabel::isHalfCharacter() const
{
    const QString letter = text();
    return letter.size() == 1 && letter.at(0).isSurrogate();
}

QSize LetterLabel::sizeHint() const
{
    QSize size = QLabel::sizeHint();
    if (isHalfCharacter())
        size.setWidth(2 * fontMetrics().height());
    return size;
}

void LetterLabel::paintEvent(QPaintEvent* event)
{
    if (!isHalfCharacter()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), int(alignment()) | Qt::TextSingleLine, firstCharacter(m_firstName()));
}
