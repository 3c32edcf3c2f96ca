// SPDX-License-Identifier: MIT
#include "widgets/vltallboxlayout.h"

#include <QWidget>

#include <algorithm>

namespace {

/// A hidden widget takes no part; a spacer does, though it calls itself empty.
bool isLeftOut(QLayoutItem* item)
{
    return item->isEmpty() && !item->spacerItem();
}

int boundedSum(qint64 sum)
{
    return static_cast<int>(std::min<qint64>(sum, QWIDGETSIZE_MAX));
}

}  // namespace

VLTallBoxLayout::VLTallBoxLayout(QWidget* parent)
    : QVBoxLayout(parent)
{
}

VLTallBoxLayout::~VLTallBoxLayout() = default;

QSize VLTallBoxLayout::sizeHint() const
{
    return sums().hint + marginSize();
}

QSize VLTallBoxLayout::minimumSize() const
{
    return sums().minimum + marginSize();
}

QSize VLTallBoxLayout::maximumSize() const
{
    QSize size = (sums().maximum + marginSize()).boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    if (alignment() & Qt::AlignHorizontal_Mask)
        size.setWidth(QWIDGETSIZE_MAX);
    if (alignment() & Qt::AlignVertical_Mask)
        size.setHeight(QWIDGETSIZE_MAX);
    return size;
}

Qt::Orientations VLTallBoxLayout::expandingDirections() const
{
    return sums().expanding;
}

bool VLTallBoxLayout::hasHeightForWidth() const
{
    return sums().heightForWidth;
}

int VLTallBoxLayout::heightForWidth(int width) const
{
    qint64 height = 0;
    for (const Cell& cell : cells(width - marginSize().width()))
        height += cell.spacingAbove + cell.height;
    return boundedSum(height + marginSize().height());
}

int VLTallBoxLayout::minimumHeightForWidth(int width) const
{
    qint64 height = 0;
    for (const Cell& cell : cells(width - marginSize().width()))
        height += cell.spacingAbove + cell.minimum;
    return boundedSum(height + marginSize().height());
}

void VLTallBoxLayout::invalidate()
{
    m_sumsValid = false;
    m_placed = false;
    QVBoxLayout::invalidate();
}

void VLTallBoxLayout::setGeometry(const QRect& rect)
{
    liftClampedLimit();
    if (m_placed && rect == geometry())
        return;
    m_placed = true;
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): QBoxLayout would place the items by its own sums.
    QLayout::setGeometry(rect);
    const QMargins margins = contentsMargins();
    placeItems((alignment() ? alignmentRect(rect) : rect).marginsRemoved(margins));
}

QSize VLTallBoxLayout::marginSize() const
{
    const QMargins margins = contentsMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

const VLTallBoxLayout::Sums& VLTallBoxLayout::sums() const
{
    if (m_sumsValid)
        return m_sums;
    Sums sums;
    qint64 minimum = 0;
    qint64 hint = 0;
    qint64 maximum = 0;
    sums.maximum.setWidth(QWIDGETSIZE_MAX);
    for (const Cell& cell : cells(-1)) {
        minimum += cell.spacingAbove + cell.minimum;
        hint += cell.spacingAbove + cell.height;
        maximum += cell.spacingAbove + cell.maximum;
        const bool spacer = cell.item->isEmpty();
        sums.minimum.setWidth(std::max(sums.minimum.width(), cell.item->minimumSize().width()));
        sums.hint.setWidth(std::max(sums.hint.width(), cell.item->sizeHint().width()));
        if (!spacer)
            sums.maximum.setWidth(std::min(sums.maximum.width(), cell.item->maximumSize().width()));
        sums.expanding |= cell.item->expandingDirections();
        sums.heightForWidth |= cell.item->hasHeightForWidth();
        if (cell.share > 0)
            sums.expanding |= Qt::Vertical;
    }
    sums.minimum.setHeight(boundedSum(minimum));
    sums.hint.setHeight(boundedSum(hint));
    sums.maximum.setHeight(boundedSum(maximum));
    sums.maximum = sums.maximum.expandedTo(sums.minimum);
    m_sums = sums;
    m_sumsValid = true;
    return m_sums;
}

QVector<VLTallBoxLayout::Cell> VLTallBoxLayout::cells(int width) const
{
    QVector<Cell> cells;
    cells.reserve(count());
    bool stretching = false;
    int nextSpacing = 0;
    for (int i = 0; i < count(); ++i) {
        QLayoutItem* item = itemAt(i);
        if (isLeftOut(item))
            continue;
        Cell cell{
            item, item->minimumSize().height(), item->sizeHint().height(), item->maximumSize().height(), stretch(i), 0};
        if (width >= 0 && item->hasHeightForWidth()) {
            cell.height = item->heightForWidth(width);
            cell.minimum = std::max(cell.minimum, item->minimumHeightForWidth(width));
        }
        cell.maximum = std::max(cell.minimum, cell.maximum);
        cell.height = qBound(cell.minimum, cell.height, cell.maximum);
        if (!item->isEmpty())
            cell.spacingAbove = std::exchange(nextSpacing, std::max(0, spacing()));
        stretching |= cell.share > 0;
        cells.append(cell);
    }
    for (Cell& cell : cells) {
        if (!stretching && (cell.item->expandingDirections() & Qt::Vertical))
            cell.share = 1;
    }
    return cells;
}

void VLTallBoxLayout::grow(QVector<Cell>& cells, qint64 room)
{
    QVector<Cell*> takers;
    qint64 shares = 0;
    for (Cell& cell : cells) {
        if (cell.share <= 0)
            continue;
        takers.append(&cell);
        shares += cell.share;
    }
    // Those that reach their limit first come first, so that one pass shares out what they leave.
    std::sort(takers.begin(), takers.end(), [](const Cell* a, const Cell* b) {
        return qint64(a->maximum - a->height) * b->share < qint64(b->maximum - b->height) * a->share;
    });
    for (Cell* taker : qAsConst(takers)) {
        const qint64 part = std::min<qint64>(room * taker->share / shares, taker->maximum - taker->height);
        taker->height += static_cast<int>(part);
        room -= part;
        shares -= taker->share;
    }
}

void VLTallBoxLayout::shrink(QVector<Cell>& cells, qint64 lack)
{
    qint64 slack = 0;
    for (const Cell& cell : qAsConst(cells))
        slack += cell.height - cell.minimum;
    for (Cell& cell : cells) {
        const qint64 own = cell.height - cell.minimum;
        if (own <= 0)
            continue;
        const qint64 part = std::min(own, lack * own / slack);
        cell.height -= static_cast<int>(part);
        lack -= part;
        slack -= own;
    }
}

void VLTallBoxLayout::placeItems(const QRect& area)
{
    QVector<Cell> column = cells(area.width());
    qint64 needed = 0;
    for (const Cell& cell : qAsConst(column))
        needed += cell.spacingAbove + cell.height;
    if (needed < area.height())
        grow(column, area.height() - needed);
    else if (needed > area.height())
        shrink(column, needed - area.height());
    int y = area.top();
    for (const Cell& cell : qAsConst(column)) {
        y += cell.spacingAbove;
        cell.item->setGeometry(QRect(area.left(), y, area.width(), cell.height));
        y += cell.height;
    }
}

void VLTallBoxLayout::liftClampedLimit()
{
    // QLayout clamps the limit that it sets on its widget, too; the widget would be cut off below it.
    QWidget* widget = parentWidget();
    if (sizeConstraint() != SetMinAndMaxSize || !widget || widget->layout() != this)
        return;
    const int height = maximumSize().height();
    if (widget->maximumHeight() < height)
        widget->setMaximumHeight(height);
}
