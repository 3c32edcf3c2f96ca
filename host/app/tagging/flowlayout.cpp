// SPDX-License-Identifier: MIT
#include "host/app/tagging/flowlayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

FlowLayout::FlowLayout(int spacing, QWidget* parent)
    : QLayout(parent)
{
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[size_t(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* const item = m_items[size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

int FlowLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int FlowLayout::arrange(const QRect& rect, bool moves) const
{
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    QPoint place = rect.topLeft();
    int rowHeight = 0;
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint().boundedTo(QSize(rect.width(), item->sizeHint().height()));
        if (place.x() > rect.left() && place.x() + size.width() > rect.left() + rect.width()) {
            place = QPoint(rect.left(), place.y() + rowHeight + spacing());
            rowHeight = 0;
        }
        if (moves)
            item->setGeometry(QStyle::visualRect(direction, rect, QRect(place, size)));
        place.rx() += size.width() + spacing();
        rowHeight = std::max(rowHeight, size.height());
    }
    return place.y() + rowHeight - rect.y();
}
