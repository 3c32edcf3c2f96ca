// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/steadyscrollarea.h"

class CTagGroupShowWidgt;

/// The scroll area around the category tiles. GUI thread only.
///
/// The tile that a change of width keeps in its place is the selected one while it is in view, else the topmost one.
class TileScrollArea : public SteadyScrollArea
{
    Q_OBJECT

public:
    /// \a tiles: the list in the area's content.
    TileScrollArea(CTagGroupShowWidgt* tiles, QWidget* parent);
    ~TileScrollArea() override;

    void layOutContent() override;

protected:
    [[nodiscard]] Item currentItem() const override;
    [[nodiscard]] Item topmostItem() const override;

private:
    QPointer<CTagGroupShowWidgt> m_tiles;
};
