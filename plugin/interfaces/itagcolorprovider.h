// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QVector>

/// One colour of the tag palette.
struct TagColorEntry
{
    int index;      ///< Palette index, as tag records carry it.
    QString name;   ///< Name of the colour.
    QString color;  ///< Text that QColor understands, such as "#3366cc".
};

/// The tag colour palette. Owned by the host, which keeps it alive while the plug-in is used. GUI thread only.
class ITagColorProvider
{
public:
    virtual void reserved0() {}
    /// [1] The same object at every call, in the order in which the colours are offered.
    virtual const QVector<TagColorEntry>& colorEntries() const = 0;
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    /// [5] Writes the colour with that index into \a out; the host decides what an unknown index gives.
    virtual void color(int index, QColor& out) const = 0;

protected:
    ~ITagColorProvider() = default;
};
