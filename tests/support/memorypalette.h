// SPDX-License-Identifier: MIT
#pragma once

#include <itagcolorprovider.h>

/// A palette of eight colours with indexes 0 to 7; other indexes leave the colour as it is.
class MemoryPalette final : public ITagColorProvider
{
public:
    const QVector<TagColorEntry>& colorEntries() const override { return entries; }
    void color(int index, QColor& out) const override
    {
        for (const TagColorEntry& entry : entries) {
            if (entry.index == index)
                out = QColor(entry.color);
        }
    }

    QVector<TagColorEntry> entries = {
        {0, QStringLiteral("slate"), QStringLiteral("#4a5568")},
        {1, QStringLiteral("red"), QStringLiteral("#b3261e")},
        {2, QStringLiteral("orange"), QStringLiteral("#9a4a00")},
        {3, QStringLiteral("olive"), QStringLiteral("#6b6000")},
        {4, QStringLiteral("green"), QStringLiteral("#1f6f3a")},
        {5, QStringLiteral("teal"), QStringLiteral("#00696f")},
        {6, QStringLiteral("blue"), QStringLiteral("#2458b8")},
        {7, QStringLiteral("purple"), QStringLiteral("#7a3fa0")},
    };
};
