// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/steadyscrollarea.h"

/// The scroll area around lists of chips. GUI thread only.
///
/// The chip that a change of width keeps in its place is the current one of the list that had the focus last, else the
/// topmost one in view. What scrolls or moves below a resting pointer is highlighted there.
class ChipScrollArea : public SteadyScrollArea
{
    Q_OBJECT

public:
    explicit ChipScrollArea(QWidget* parent = nullptr);
    ~ChipScrollArea() override;

protected:
    bool event(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    [[nodiscard]] Item currentItem() const override;
    [[nodiscard]] Item topmostItem() const override;
};
