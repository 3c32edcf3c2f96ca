// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QFontMetricsF>
#include <QHash>
#include <QSize>
#include <QString>

#include <optional>
#include <vector>

/// What a list shows of each chip.
struct ChipLook
{
    bool count = false;     ///< The file count stands behind the name.
    bool enlarged = false;  ///< The chip is drawn larger.
};

/// Measures chips. All lengths are logical pixels.
///
/// Text widths are those of QFontMetrics::horizontalAdvance(), to the pixel, but shaping is spared where it cannot
/// matter: advances of Latin characters with the kerning of pairs, of Han and Hangul characters and of single emoji are
/// kept, summed in 1/64 pixel, the unit of the text engine, and rounded once; every other text is shaped.
/// GUI thread only.
class ChipMetrics
{
public:
    static constexpr int height = 22;         ///< Of a chip that is not enlarged.
    static constexpr int minimumWidth = 44;   ///< Of a chip with a name.
    static constexpr int addChipWidth = 82;   ///< Of the chip without a name.
    static constexpr int textMargin = 10;     ///< Left and right of the text.
    static constexpr int countGap = 10;       ///< Between the name and the count.
    static constexpr int enlargedWidth = 6;   ///< What enlarging adds to the width.
    static constexpr int enlargedHeight = 4;  ///< What enlarging adds to the height.

    explicit ChipMetrics(const QFont& font);

    /// The metrics of the chip font: the application's font at 12 pixels. Made anew when that font changes.
    static ChipMetrics& shared();
    /// The application's font at 12 pixels.
    static QFont chipFont();

    [[nodiscard]] static int chipHeight(ChipLook look) { return look.enlarged ? height + enlargedHeight : height; }

    [[nodiscard]] const QFont& font() const { return m_font; }
    int textWidth(const QString& text);
    QSize chipSize(const QString& name, int fileCount, ChipLook look);

private:
    std::optional<int> sumOfAdvances(const QString& text);
    std::optional<int> sumOfWideAdvances(const QString& text);
    int latinAdvance(int index, int next, const QChar* pair);
    int wideAdvance(QChar character);
    [[nodiscard]] int measureWide(QChar character);
    int emojiAdvance(const QChar* pair);
    int countWidth(int fileCount);
    [[nodiscard]] int shapedWidth(const QString& text) const;

    QFont m_applicationFont;
    QFont m_font;
    QFontMetrics m_metrics;
    QFontMetricsF m_exactMetrics;
    // All advances in 1/64 pixel.
    std::vector<int> m_latinPairs;     ///< Of the first character when the second follows.
    std::vector<int> m_latinAdvances;  ///< Of characters with nothing behind them.
    std::vector<int> m_wideAdvances;   ///< Of the characters from U+4E00 to U+D7A3.
    QHash<uint, int> m_emojiAdvances;
    int m_wideMeasured = 0;
    bool m_hintingKeepsPixels = true;  ///< So far: advances of whole pixels are the same without hinting.
    std::optional<QFontMetricsF> m_unhintedMetrics;
    std::vector<int> m_countWidths;  ///< Of small numbers, in pixels.
    bool m_joinsLetters = false;     ///< The font draws some three letters as one glyph.
};
