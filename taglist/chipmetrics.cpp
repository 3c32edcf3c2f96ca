// SPDX-License-Identifier: MIT
#include "taglist/chipmetrics.h"

#include <QApplication>

#include <algorithm>

namespace {

constexpr int fontPixelSize = 12;
constexpr int unitsPerPixel = 64;  // the text engine's 26.6 fixed point
constexpr int unknown = -1;

constexpr ushort firstAscii = 0x20;
constexpr ushort lastAscii = 0x7E;
constexpr int asciiCount = lastAscii - firstAscii + 1;

// Han and Hangul in one table; what lies between the two blocks is never asked for.
constexpr ushort firstHan = 0x4E00;
constexpr ushort lastHan = 0x9FFF;
constexpr ushort firstHangul = 0xAC00;
constexpr ushort lastHangul = 0xD7A3;

bool isAscii(QChar character)
{
    return character.unicode() >= firstAscii && character.unicode() <= lastAscii;
}

bool isHan(QChar character)
{
    return character.unicode() >= firstHan && character.unicode() <= lastHan;
}

bool isHangul(QChar character)
{
    return character.unicode() >= firstHangul && character.unicode() <= lastHangul;
}

int toUnits(qreal pixels)
{
    return qRound(pixels * unitsPerPixel);
}

int toPixels(int units)
{
    return (units + unitsPerPixel / 2) / unitsPerPixel;
}

}  // namespace

ChipMetrics::ChipMetrics(const QFont& font)
    : m_font(font)
    , m_metrics(font)
    , m_exactMetrics(font)
    , m_asciiPairs(asciiCount * asciiCount, unknown)
    , m_wideAdvances(lastHangul - firstHan + 1, unknown)
{
    const auto pairsExplain = [this](const QString& letters) {
        return asciiWidth(letters) == toUnits(m_exactMetrics.horizontalAdvance(letters));
    };
    m_pairsAreExact = pairsExplain(QStringLiteral("ffi")) && pairsExplain(QStringLiteral("ffl")) &&
                      pairsExplain(QStringLiteral("fff"));
}

ChipMetrics& ChipMetrics::shared()
{
    static ChipMetrics metrics(chipFont());
    const QFont font = chipFont();
    if (metrics.m_font != font)
        metrics = ChipMetrics(font);
    return metrics;
}

QFont ChipMetrics::chipFont()
{
    QFont font;
    font.setPixelSize(fontPixelSize);
    return font;
}

int ChipMetrics::textWidth(const QString& text)
{
    if (text.isEmpty())
        return 0;
    if (std::all_of(text.cbegin(), text.cend(), isAscii) && (m_pairsAreExact || !text.contains(QLatin1String("ff"))))
        return toPixels(asciiWidth(text));
    if (std::all_of(text.cbegin(), text.cend(), isHan) || std::all_of(text.cbegin(), text.cend(), isHangul)) {
        int units = 0;
        for (const QChar character : text)
            units += wideCharacterAdvance(character);
        return toPixels(units);
    }
    return m_metrics.horizontalAdvance(text);
}

QSize ChipMetrics::chipSize(const QString& name, int fileCount, ChipLook look)
{
    QSize size(addChipWidth, chipHeight(look));
    if (!name.isEmpty()) {
        int width = textWidth(name) + 2 * textMargin;
        if (look.count)
            width += countGap + textWidth(QString::number(fileCount));
        size.setWidth(std::max(width, minimumWidth));
    }
    if (look.enlarged)
        size.rwidth() += enlargedWidth;
    return size;
}

/// Width of a text of printable ASCII, in 1/64 pixel.
int ChipMetrics::asciiWidth(const QString& text)
{
    int units = 0;
    const int last = text.size() - 1;
    for (int i = 0; i < last; ++i) {
        int& advance = m_asciiPairs[(text[i].unicode() - firstAscii) * asciiCount + text[i + 1].unicode() - firstAscii];
        if (advance == unknown)
            advance = toUnits(m_exactMetrics.horizontalAdvance(text.mid(i, 2))) -
                      toUnits(m_exactMetrics.horizontalAdvance(text.mid(i + 1, 1)));
        units += advance;
    }
    return units + toUnits(m_exactMetrics.horizontalAdvance(text.mid(last)));
}

/// Advance of a Han or Hangul character, in 1/64 pixel.
int ChipMetrics::wideCharacterAdvance(QChar character)
{
    int& advance = m_wideAdvances[character.unicode() - firstHan];
    if (advance == unknown)
        advance = toUnits(m_exactMetrics.horizontalAdvance(QString(character)));
    return advance;
}
