// SPDX-License-Identifier: MIT
#include "taglist/chipmetrics.h"

#include <QApplication>

#include <algorithm>

namespace {

constexpr int fontPixelSize = 12;
constexpr int unitsPerPixel = 64;  // the text engine's 26.6 fixed point
constexpr int unknown = -1;

// The number of wide characters measured so far from which on they are measured without hinting, first to compare, then
// to rely on it. A small library has fewer: loading the fonts a second time would cost it more than it saves.
constexpr int comparedFrom = 400;
constexpr int reliedOnFrom = 500;

constexpr int keptCounts = 1000;  // file counts beyond them are measured each time

constexpr ushort firstAscii = 0x20;
constexpr ushort lastAscii = 0x7E;
constexpr int asciiCount = lastAscii - firstAscii + 1;
// Letters of the Latin-1 supplement and of Latin Extended-A.
constexpr ushort firstAccented = 0xC0;
constexpr ushort lastAccented = 0x17F;
constexpr int latinCount = asciiCount + lastAccented - firstAccented + 1;
constexpr int joiningLetter = 'f' - firstAscii;  // two of them begin the glyphs of three letters that fonts have

// Han and Hangul in one table; what lies between the two blocks is never asked for.
constexpr ushort firstHan = 0x4E00;
constexpr ushort lastHan = 0x9FFF;
constexpr ushort firstHangul = 0xAC00;
constexpr ushort lastHangul = 0xD7A3;

/// The place of a Latin character in the table of pairs, or -1 for another character.
int latinIndex(QChar character)
{
    const ushort unit = character.unicode();
    if (unit >= firstAscii && unit <= lastAscii)
        return unit - firstAscii;
    if (unit >= firstAccented && unit <= lastAccented)
        return asciiCount + unit - firstAccented;
    return -1;
}

bool isWide(QChar character)
{
    const ushort unit = character.unicode();
    return (unit >= firstHan && unit <= lastHan) || (unit >= firstHangul && unit <= lastHangul);
}

/// Pictures that take no part in sequences by themselves; skin tones and flags do.
bool isEmoji(uint character)
{
    return (character >= 0x1F300 && character <= 0x1F3FA) || (character >= 0x1F400 && character <= 0x1F64F) ||
           (character >= 0x1F680 && character <= 0x1F6FF) || (character >= 0x1F900 && character <= 0x1F9FF);
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
    , m_latinPairs(static_cast<size_t>(latinCount) * latinCount, unknown)
    , m_latinAdvances(latinCount, unknown)
    , m_wideAdvances(lastHangul - firstHan + 1, unknown)
    , m_countWidths(keptCounts, unknown)
{
    const auto pairsExplain = [this](const QString& letters) { return sumOfAdvances(letters) == shapedWidth(letters); };
    m_joinsLetters = !pairsExplain(QStringLiteral("ffi")) || !pairsExplain(QStringLiteral("ffl")) ||
                     !pairsExplain(QStringLiteral("fff"));
}

ChipMetrics& ChipMetrics::shared()
{
    static ChipMetrics metrics(chipFont());
    if (!metrics.m_applicationFont.isCopyOf(QFont())) {
        if (metrics.m_font != chipFont())
            metrics = ChipMetrics(chipFont());
        metrics.m_applicationFont = QFont();
    }
    return metrics;
}

QFont ChipMetrics::chipFont()
{
    QFont font;
    font.setPixelSize(fontPixelSize);
    // What is not resolved a painter takes from its widget's font; the text would be wider or narrower than measured.
    font.resolve(QFont::AllPropertiesResolved);
    return font;
}

int ChipMetrics::textWidth(const QString& text)
{
    if (const std::optional<int> sum = sumOfAdvances(text))
        return toPixels(*sum);
    // The text engine gives control characters a width until it has looked for them in other fonts.
    const auto isControl = [](QChar character) { return character.category() == QChar::Other_Control; };
    if (std::any_of(text.cbegin(), text.cend(), isControl))
        (void)m_metrics.horizontalAdvance(text);
    return m_metrics.horizontalAdvance(text);
}

QSize ChipMetrics::chipSize(const QString& name, int fileCount, ChipLook look)
{
    QSize size(addChipWidth, chipHeight(look));
    if (!name.isEmpty()) {
        int width = textWidth(name) + 2 * textMargin;
        if (look.count)
            width += countGap + countWidth(fileCount);
        size.setWidth(std::max(width, minimumWidth));
    }
    if (look.enlarged)
        size.rwidth() += enlargedWidth;
    return size;
}

/// Width in 1/64 pixel of a text in Latin and emoji, or in Han and Hangul; nothing for another text, and for one with
/// letters that the font may draw as one glyph. In a text of both scripts digits and spaces may come from either font.
std::optional<int> ChipMetrics::sumOfAdvances(const QString& text)
{
    if (!text.isEmpty() && isWide(text.at(0)))
        return sumOfWideAdvances(text);
    int units = 0;
    const int length = text.size();
    const auto latinAt = [&text, length](int i) { return i < length ? latinIndex(text.at(i)) : -1; };
    int latin = latinAt(0);
    for (int i = 0; i < length; ++i) {
        const QChar* pair = text.constData() + i;
        int next = latinAt(i + 1);
        if (m_joinsLetters && latin == joiningLetter && next == joiningLetter)
            return std::nullopt;
        if (latin >= 0) {
            units += latinAdvance(latin, next, pair);
        } else {
            const int advance = i + 1 < length ? emojiAdvance(pair) : unknown;
            if (advance == unknown)
                return std::nullopt;
            units += advance;
            next = latinAt(++i + 1);
        }
        latin = next;
    }
    return units;
}

std::optional<int> ChipMetrics::sumOfWideAdvances(const QString& text)
{
    if (!std::all_of(text.cbegin(), text.cend(), isWide))
        return std::nullopt;
    int units = 0;
    for (const QChar character : text)
        units += wideAdvance(character);
    return units;
}

/// Advance of the first character of \a pair, in 1/64 pixel; \a next is -1 when the second one is not Latin.
int ChipMetrics::latinAdvance(int index, int next, const QChar* pair)
{
    int& advance = next < 0 ? m_latinAdvances[index] : m_latinPairs[index * latinCount + next];
    if (advance == unknown && next < 0)
        advance = shapedWidth(QString(pair, 1));
    else if (advance == unknown)
        advance = shapedWidth(QString(pair, 2)) - latinAdvance(next, -1, pair + 1);
    return advance;
}

/// Advance of a Han or Hangul character, in 1/64 pixel.
int ChipMetrics::wideAdvance(QChar character)
{
    int& advance = m_wideAdvances[character.unicode() - firstHan];
    if (advance == unknown)
        advance = measureWide(character);
    return advance;
}

/// Hinting the glyphs of thousands of characters was a third of opening a large library. It leaves an advance alone
/// that is a whole number of pixels, as those of these characters mostly are: this is compared for a while and then
/// relied on.
int ChipMetrics::measureWide(QChar character)
{
    const int number = m_wideMeasured++;
    if (number < comparedFrom || !m_hintingKeepsPixels)
        return shapedWidth(QString(character));
    if (!m_unhintedMetrics) {
        QFont unhinted = m_font;
        unhinted.setHintingPreference(QFont::PreferNoHinting);
        m_unhintedMetrics.emplace(unhinted);
    }
    const int advance = toUnits(m_unhintedMetrics->horizontalAdvance(character));
    const bool isWhole = advance % unitsPerPixel == 0;
    if (isWhole && number >= reliedOnFrom)
        return advance;
    const int hinted = shapedWidth(QString(character));
    m_hintingKeepsPixels = !isWhole || hinted == advance;
    return hinted;
}

/// Advance of an emoji, in 1/64 pixel; unknown for another pair of code units.
int ChipMetrics::emojiAdvance(const QChar* pair)
{
    if (!pair[0].isHighSurrogate() || !pair[1].isLowSurrogate())
        return unknown;
    const uint character = QChar::surrogateToUcs4(pair[0], pair[1]);
    if (!isEmoji(character))
        return unknown;
    const auto found = m_emojiAdvances.constFind(character);
    return found != m_emojiAdvances.cend() ? *found : *m_emojiAdvances.insert(character, shapedWidth(QString(pair, 2)));
}

/// Width of a file count, in pixels.
int ChipMetrics::countWidth(int fileCount)
{
    if (fileCount < 0 || fileCount >= keptCounts)
        return textWidth(QString::number(fileCount));
    int& width = m_countWidths[fileCount];
    if (width == unknown)
        width = textWidth(QString::number(fileCount));
    return width;
}

/// Width of a text as the text engine gives it, in 1/64 pixel.
int ChipMetrics::shapedWidth(const QString& text) const
{
    return toUnits(m_exactMetrics.horizontalAdvance(text));
}
