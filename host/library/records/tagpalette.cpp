// SPDX-License-Identifier: MIT
#include "host/library/records/tagpalette.h"

#include "host/library/records/tagname.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QtEndian>

namespace {

struct Color
{
    const char* name;
    const char* value;
};

constexpr Color colors[TagPalette::size] = {
    {QT_TRANSLATE_NOOP("TagPalette", "Blue"), "#2f6fd0"},   {QT_TRANSLATE_NOOP("TagPalette", "Red"), "#8f2436"},
    {QT_TRANSLATE_NOOP("TagPalette", "Teal"), "#14807b"},   {QT_TRANSLATE_NOOP("TagPalette", "Purple"), "#7a3a8c"},
    {QT_TRANSLATE_NOOP("TagPalette", "Orange"), "#b35a00"}, {QT_TRANSLATE_NOOP("TagPalette", "Indigo"), "#3f4a9e"},
    {QT_TRANSLATE_NOOP("TagPalette", "Grey"), "#6f7275"},   {QT_TRANSLATE_NOOP("TagPalette", "Green"), "#2c6b3a"}};

}  // namespace

TagPalette::TagPalette()
{
    for (int i = 0; i < size; ++i)
        m_entries.append(
            {i, QCoreApplication::translate("TagPalette", colors[i].name), QLatin1String(colors[i].value)});
}

ITagColorProvider* TagPalette::instance()
{
    static TagPalette palette;
    return &palette;
}

/// Rendezvous hashing: each colour draws a number for the name, and the highest wins. A further colour takes its share
/// of the names from all others and leaves the rest where they are. One digest serves eight colours: four bytes each.
int TagPalette::indexForName(const QString& name)
{
    const QByteArray key = tagname::key(name).toUtf8();
    constexpr int bytesOfDraw = 4;
    constexpr int bytesOfDigest = 32;
    QByteArray digests;
    while (digests.size() < size * bytesOfDraw) {
        const QByteArray number = QByteArray::number(digests.size() / bytesOfDigest);
        digests += QCryptographicHash::hash(key + '/' + number, QCryptographicHash::Sha256);
    }
    int best = 0;
    quint32 highest = 0;
    for (int i = 0; i < size; ++i) {
        const auto draw = qFromBigEndian<quint32>(digests.constData() + qptrdiff(i) * bytesOfDraw);
        if (draw > highest) {
            best = i;
            highest = draw;
        }
    }
    return best;
}

const QVector<TagColorEntry>& TagPalette::colorEntries() const
{
    return m_entries;
}

void TagPalette::color(int index, QColor& out) const
{
    out = QColor(m_entries.value(index, m_entries.first()).color);
}
