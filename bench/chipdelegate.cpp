// SPDX-License-Identifier: MIT
#include "bench/chipdelegate.h"

#include "plugin/state/tagitem.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace {

// Logical pixels.
constexpr int fontPixelSize = 12;
constexpr int chipHeight = 22;
constexpr int minimumWidth = 44;
constexpr int textMargin = 10;
constexpr int countGap = 10;
constexpr int baseline = 16;
constexpr int radius = 4;

QFont chipFont()
{
    QFont font = QApplication::font();
    font.setPixelSize(fontPixelSize);
    return font;
}

}  // namespace

bench::ChipDelegate::ChipDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
    , m_font(chipFont())
    , m_metrics(m_font)
{
}

QSize bench::ChipDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const auto tag = index.data(Qt::UserRole).value<TagItem>();
    const int textWidth =
        m_metrics.horizontalAdvance(tag.name) + countGap + m_metrics.horizontalAdvance(QString::number(tag.fileCount));
    return {std::max(minimumWidth, textWidth + 2 * textMargin), chipHeight};
}

void bench::ChipDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto tag = index.data(Qt::UserRole).value<TagItem>();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(m_font);
    painter->setPen(Qt::NoPen);
    painter->setBrush(tag.color);
    painter->drawRoundedRect(option.rect, radius, radius);
    painter->setPen(Qt::white);
    painter->drawText(option.rect.left() + textMargin + 1, option.rect.top() + baseline, tag.name);
    const QString count = QString::number(tag.fileCount);
    const int countLeft = option.rect.right() + 1 - textMargin - m_metrics.horizontalAdvance(count);
    painter->drawText(countLeft, option.rect.top() + baseline, count);
    painter->restore();
}
