// SPDX-License-Identifier: MIT
#include "pages/emptyhint.h"

#include <vlskinsetting.h>

#include <QEvent>
#include <QPainter>
#include <QWidget>

#include <utility>

namespace {

// Logical pixels.
constexpr int fontPixels = 13;
constexpr int widestText = 440;
constexpr int rightMargin = 20;

constexpr int weakTextColor = 2;

}  // namespace

EmptyHint::EmptyHint(QWidget* content, const QPoint& corner, std::function<QString()> text)
    : QObject(content)
    , m_content(content)
    , m_corner(corner)
    , m_text(std::move(text))
{
    content->installEventFilter(this);
}

EmptyHint::~EmptyHint() = default;

bool EmptyHint::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_content)
        return false;
    if (event->type() == QEvent::Paint) {
        m_painted = m_text();
        if (!m_painted.isEmpty())
            paint();
    } else if (event->type() == QEvent::LayoutRequest && m_text() != m_painted) {
        m_content->update();
    }
    return false;
}

void EmptyHint::paint() const
{
    QPainter painter(m_content);
    QFont font = m_content->font();
    font.setPixelSize(fontPixels);
    painter.setFont(font);
    painter.setPen(VLSkinSetting::GetInstance()->GetTextColor(weakTextColor));
    const int width = qMin(widestText, m_content->width() - m_corner.x() - rightMargin);
    const QRect place(m_corner, QSize(width, m_content->height() - m_corner.y()));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, m_painted);
}
