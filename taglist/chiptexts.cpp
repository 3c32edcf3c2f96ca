// SPDX-License-Identifier: MIT
#include "taglist/chiptexts.h"

#include <QPainter>
#include <QTextLayout>

#include <memory>

namespace {

constexpr int keptCharacters = 32768;  // of all texts together: several screens of chips
constexpr int longestKept = 4096;      // a longer text is drawn afresh each time
constexpr int textOverhead = 16;       // what a text costs besides its characters, counted in characters

}  // namespace

ChipTexts::ChipTexts()
    : m_layouts(keptCharacters)
{
}

ChipTexts::~ChipTexts() = default;

QSharedPointer<ChipTexts> ChipTexts::shared()
{
    static QWeakPointer<ChipTexts> held;
    auto texts = held.toStrongRef();
    if (!texts) {
        texts.reset(new ChipTexts);
        held = texts;
    }
    return texts;
}

void ChipTexts::draw(QPainter* painter, const QPointF& baselineLeft, const QString& text)
{
    keepFor(painter);
    const QTextLayout* layout = layoutOf(text);
    if (layout)
        layout->draw(painter, baselineLeft - QPointF(0, layout->lineAt(0).ascent()));
    else
        painter->drawText(baselineLeft, text);
}

void ChipTexts::keepFor(const QPainter* painter)
{
    if (m_font == painter->font() && m_direction == painter->layoutDirection())
        return;
    m_font = painter->font();
    m_direction = painter->layoutDirection();
    m_layouts.clear();
}

/// Null for a text that is too long to be kept, or that a layout would break into lines.
QTextLayout* ChipTexts::layoutOf(const QString& text)
{
    if (QTextLayout* kept = m_layouts.object(text))
        return kept;
    if (text.size() > longestKept)
        return nullptr;
    auto layout = std::make_unique<QTextLayout>(text, m_font);
    QTextOption option;
    option.setTextDirection(m_direction);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    const QTextLine line = layout->createLine();
    layout->endLayout();
    if (line.textLength() != text.size())
        return nullptr;
    QTextLayout* kept = layout.get();
    m_layouts.insert(text, layout.release(), text.size() + textOverhead);
    return kept;
}
