// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

#include <vector>

/// The wrapping flow of chips from left to right, as QListView lays out icons of equal height: the same gap around and
/// between all chips, a new line where the next chip and its gap would pass the right edge.
///
/// A plain value in the coordinates of the viewport, logical pixels. Laying out is linear in the number of rows and
/// asks nobody; every look-up is a binary search.
class ChipFlow
{
public:
    /// Half-open.
    struct RowRange
    {
        int first;
        int last;
    };

    void setSpacing(int spacing);
    void setRowHeight(int height);
    /// Width of the viewport.
    void setAvailableWidth(int width);

    [[nodiscard]] int rowCount() const { return static_cast<int>(m_widths.size()); }
    [[nodiscard]] int rowHeight() const { return m_rowHeight; }
    [[nodiscard]] int width(int row) const { return m_widths[row]; }
    void setWidth(int row, int width);
    void setWidths(std::vector<int> widths);
    void insertWidths(int row, const std::vector<int>& widths);
    void removeRows(int first, int count);

    /// Rectangle of a row; empty for a row that does not exist.
    [[nodiscard]] QRect rect(int row) const;
    /// The row under a point, or -1.
    [[nodiscard]] int rowAt(const QPoint& point) const;
    /// The rows of every line that \a area touches.
    [[nodiscard]] RowRange rowsOfLines(const QRect& area) const;
    /// The row nearest to \a row in the line \a lines below it (above when negative); \a row itself at the ends.
    [[nodiscard]] int rowInOtherLine(int row, int lines) const;
    /// Y of the lower edge of the last line (exclusive), 0 without rows.
    [[nodiscard]] int contentHeight() const;

private:
    void ensureLaidOut() const;
    [[nodiscard]] int lineOf(int row) const;
    [[nodiscard]] int lineEnd(int line) const;
    [[nodiscard]] int linePitch() const { return m_rowHeight + m_spacing; }

    int m_spacing = 0;
    int m_rowHeight = 0;
    int m_availableWidth = 0;
    std::vector<int> m_widths;
    mutable std::vector<int> m_lefts;
    mutable std::vector<int> m_lineStarts;  ///< First row of every line.
    mutable bool m_laidOut = true;
};
