// SPDX-License-Identifier: MIT
#include "taglist/chipflow.h"

#include <algorithm>
#include <cstdlib>

void ChipFlow::setSpacing(int spacing)
{
    m_laidOut = m_laidOut && m_spacing == spacing;
    m_spacing = spacing;
}

void ChipFlow::setRowHeight(int height)
{
    m_rowHeight = height;
}

void ChipFlow::setAvailableWidth(int width)
{
    m_laidOut = m_laidOut && m_availableWidth == width;
    m_availableWidth = width;
}

void ChipFlow::setWidth(int row, int width)
{
    m_laidOut = m_laidOut && m_widths[row] == width;
    m_widths[row] = width;
}

void ChipFlow::setWidths(std::vector<int> widths)
{
    m_widths = std::move(widths);
    m_laidOut = false;
}

void ChipFlow::insertWidths(int row, const std::vector<int>& widths)
{
    m_widths.insert(m_widths.begin() + row, widths.begin(), widths.end());
    m_laidOut = false;
}

void ChipFlow::removeRows(int first, int count)
{
    m_widths.erase(m_widths.begin() + first, m_widths.begin() + first + count);
    m_laidOut = false;
}

QRect ChipFlow::rect(int row) const
{
    if (row < 0 || row >= rowCount())
        return {0, 0, 0, 0};
    ensureLaidOut();
    return {m_lefts[row], m_spacing + lineOf(row) * linePitch(), m_widths[row], m_rowHeight};
}

int ChipFlow::rowAt(const QPoint& point) const
{
    const RowRange line = rowsOfLines(QRect(point, QSize(1, 1)));
    const auto begin = m_lefts.begin();
    const auto after = std::upper_bound(begin + line.first, begin + line.last, point.x());
    const int row = static_cast<int>(after - begin) - 1;
    return row >= line.first && rect(row).contains(point) ? row : -1;
}

ChipFlow::RowRange ChipFlow::rowsOfLines(const QRect& area) const
{
    ensureLaidOut();
    if (m_widths.empty() || area.isEmpty() || area.bottom() < m_spacing)
        return {0, 0};
    const int lineCount = static_cast<int>(m_lineStarts.size());
    const int firstLine = std::max(area.top() - m_spacing, 0) / linePitch();
    const int lastLine = std::min((area.bottom() - m_spacing) / linePitch(), lineCount - 1);
    if (firstLine > lastLine)
        return {0, 0};
    return {m_lineStarts[firstLine], lineEnd(lastLine)};
}

int ChipFlow::rowInOtherLine(int row, int lines) const
{
    ensureLaidOut();
    const int line = lineOf(row) + lines;
    if (line < 0 || line >= static_cast<int>(m_lineStarts.size()))
        return row;
    const int center = rect(row).center().x();
    int nearest = m_lineStarts[line];
    for (int other = nearest + 1; other < lineEnd(line); ++other) {
        if (std::abs(rect(other).center().x() - center) < std::abs(rect(nearest).center().x() - center))
            nearest = other;
    }
    return nearest;
}

int ChipFlow::contentHeight() const
{
    ensureLaidOut();
    return static_cast<int>(m_lineStarts.size()) * linePitch();
}

void ChipFlow::ensureLaidOut() const
{
    if (m_laidOut)
        return;
    m_laidOut = true;
    m_lefts.resize(m_widths.size());
    m_lineStarts.clear();
    // QListView wraps at the last pixel of the viewport, and counts the gap behind a chip as part of it.
    const int rightEdge = m_availableWidth - 1;
    int left = m_spacing;
    for (int row = 0; row < rowCount(); ++row) {
        const int step = m_widths[row] + m_spacing;
        const bool wraps = left > m_spacing && left + step > rightEdge;
        if (wraps)
            left = m_spacing;
        if (wraps || row == 0)
            m_lineStarts.push_back(row);
        m_lefts[row] = left;
        left += step;
    }
}

int ChipFlow::lineOf(int row) const
{
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), row);
    return static_cast<int>(after - m_lineStarts.begin()) - 1;
}

int ChipFlow::lineEnd(int line) const
{
    const auto next = static_cast<size_t>(line) + 1;
    return next < m_lineStarts.size() ? m_lineStarts[next] : rowCount();
}
