// SPDX-License-Identifier: MIT
#include "host/library/records/tagpalette.h"

#include "host/library/records/tagname.h"

#include <QCoreApplication>

namespace {

QString colorName(const char* source)
{
    return QCoreApplication::translate("TagPalette", source);
}

}  // namespace

TagPalette::TagPalette()
    : m_entries{
          {0, colorName("Blue"), QStringLiteral("#2f6fd0")},   {1, colorName("Red"), QStringLiteral("#8f2436")},
          {2, colorName("Teal"), QStringLiteral("#14807b")},   {3, colorName("Purple"), QStringLiteral("#7a3a8c")},
          {4, colorName("Orange"), QStringLiteral("#b35a00")}, {5, colorName("Indigo"), QStringLiteral("#3f4a9e")},
          {6, colorName("Grey"), QStringLiteral("#6f7275")},   {7, colorName("Green"), QStringLiteral("#2c6b3a")}}
{
}

ITagColorProvider* TagPalette::instance()
{
    static TagPalette palette;
    return &palette;
}

int TagPalette::indexForName(const QString& name)
{
    // FNV-1a (http://www.isthe.com/chongo/tech/comp/fnv), 32 bits: unlike qHash() it never changes with a seed.
    quint32 hash = 2166136261u;
    for (const QChar& unit : tagname::key(name)) {
        hash = (hash ^ unit.cell()) * 16777619u;
        hash = (hash ^ unit.row()) * 16777619u;
    }
    return static_cast<int>((hash ^ (hash >> 16)) % Size);
}

const QVector<TagColorEntry>& TagPalette::colorEntries() const
{
    return m_entries;
}

void TagPalette::color(int index, QColor& out) const
{
    out = QColor(m_entries.value(index, m_entries.first()).color);
}
