// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QScrollArea>

class ChipView;

/// A scroll area of chips whose content is as wide as the area. GUI thread only.
///
/// A change of the area's width moves the chips to other lines. One of them then stays where it is on the screen, as
/// far as the content reaches: the current chip of the list that had the focus last while it is in view, else the
/// topmost one in view. Several changes in a row keep the same chip, so that the way back ends where it began. The
/// content is laid out before a change of width returns.
class ChipScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit ChipScrollArea(QWidget* parent = nullptr);
    ~ChipScrollArea() override;

    /// Gives the content the height that its lists need by now.
    void layOutContent();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    struct Chip
    {
        QPointer<ChipView> view;
        QPersistentModelIndex index;
    };

    /// In logical pixels of the viewport.
    [[nodiscard]] int topOf(const Chip& chip) const;
    [[nodiscard]] bool isShown(const Chip& chip) const;
    [[nodiscard]] Chip currentChip() const;
    [[nodiscard]] Chip topmostChip() const;
    void chooseKeptChip();
    void keepChip();

    Chip m_kept;
    QPersistentModelIndex m_current;  ///< The current chip when the kept one was chosen.
    int m_wantedTop = 0;              ///< Of the kept chip, when the content reaches far enough.
    int m_leftTop = 0;                ///< Of the kept chip after the last change of width.
    bool m_wasLaidOut = false;
};
