// SPDX-License-Identifier: MIT
#include "pages/tilescrollarea.h"

#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"

TileScrollArea::TileScrollArea(CTagGroupShowWidgt* tiles, QWidget* parent)
    : SteadyScrollArea(parent)
    , m_tiles(tiles)
{
}

TileScrollArea::~TileScrollArea() = default;

/// The list knows its height when it has its width, which the layout around it gives it.
void TileScrollArea::layOutContent()
{
    SteadyScrollArea::layOutContent();
    if (m_tiles)
        m_tiles->layOutIfDue();
    SteadyScrollArea::layOutContent();
}

SteadyScrollArea::Item TileScrollArea::currentItem() const
{
    return m_tiles ? Item{m_tiles.data(), m_tiles->indexOfSelectedTile()} : Item();
}

SteadyScrollArea::Item TileScrollArea::topmostItem() const
{
    if (!m_tiles)
        return {};
    const int top = m_tiles->viewport()->mapFrom(viewport(), QPoint()).y();
    for (int row = 0; row < m_tiles->count(); ++row) {
        const QModelIndex index = m_tiles->model()->index(row, 0);
        if (m_tiles->visualRect(index).bottom() >= top)
            return {m_tiles.data(), index};
    }
    return {};
}
