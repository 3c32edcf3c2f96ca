// SPDX-License-Identifier: MIT
#include "taglist/vltagdelegate.h"

#include "taglist/vltaglistview.h"

#include <vlskinsetting.h>

#include <QPainter>

namespace {

constexpr int chipRadius = 4;
constexpr int enlargedShift = 4;  // how far an enlarged chip moves down in its row
constexpr int nameLeft = 11;      // of a name at its natural width
constexpr int countBaseline = 6;  // above the lower edge of the chip
constexpr int chipTextColor = 3;  // the skin's text colour on chips
constexpr QColor hoverTint(255, 255, 255, 100);

constexpr QStyle::State keyboardFocus = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;

constexpr int addChipRadius = 11;
constexpr int addChipBaseline = 15;
constexpr int addChipEnlargedNarrowing = 2;
constexpr QLine plusHorizontal(64, 11, 72, 11);
constexpr QLine plusVertical(68, 7, 68, 15);

}  // namespace

VLTagDelegate::VLTagDelegate(QObject* view)
    : QStyledItemDelegate(view)
    , m_view(qobject_cast<VLTagListView*>(view))
    , m_texts(ChipTexts::shared())
{
    installEventFilter(this);
}

QSize VLTagDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const TagItem tag = tagAt(index);
    return ChipMetrics::shared().chipSize(tag.name, tag.fileCount, look());
}

void VLTagDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const TagItem tag = tagAt(index);
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setFont(ChipMetrics::shared().font());
    if (tag.name.isEmpty())
        paintAddChip(painter, option);
    else
        paintTagChip(painter, option, tag);
    painter->restore();
}

ChipLook VLTagDelegate::look() const
{
    return m_view ? m_view->chipLook() : ChipLook();
}

TagItem VLTagDelegate::tagAt(const QModelIndex& index) const
{
    if (m_view && index.model() == m_view->model())
        return m_view->tagAt(index);
    return index.data(Qt::UserRole).value<TagItem>();
}

void VLTagDelegate::paintTagChip(QPainter* painter, const QStyleOptionViewItem& option, const TagItem& tag) const
{
    const QSize size = ChipMetrics::shared().chipSize(tag.name, tag.fileCount, look());
    QRectF chip(option.rect.x(), option.rect.y(), size.width(), ChipMetrics::height);
    const int fontSize = ChipMetrics::shared().font().pixelSize();
    int baseline = option.rect.y() + (size.height() - fontSize) / 2 - 1 + fontSize;
    if (look().enlarged) {
        chip.adjust(0, enlargedShift, -ChipMetrics::enlargedWidth, enlargedShift);
        ++baseline;
    }
    const QRectF body = chip.adjusted(0, 0, 1, 0);
    painter->setPen(Qt::NoPen);
    painter->setBrush(tag.color);
    painter->drawRoundedRect(body, chipRadius, chipRadius);
    if (option.state & QStyle::State_MouseOver) {
        painter->setBrush(hoverTint);
        painter->drawRoundedRect(body, chipRadius, chipRadius);
    }
    paintChipText(painter, chip, baseline, size, tag);
    if ((option.state & keyboardFocus) == keyboardFocus) {
        painter->setPen(Qt::white);
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), chipRadius, chipRadius);
    }
}

void VLTagDelegate::paintChipText(QPainter* painter, const QRectF& chip, int baseline, QSize size,
                                  const TagItem& tag) const
{
    ChipMetrics& metrics = ChipMetrics::shared();
    painter->setPen(VLSkinSetting::GetInstance()->GetTextColor(chipTextColor));
    qreal left = chip.x() + nameLeft;
    const bool countShown = look().count;
    const int nameWidth = countShown ? 0 : metrics.textWidth(tag.name);
    if (!countShown && chip.width() - nameWidth != 2 * ChipMetrics::textMargin)
        left = chip.x() + (chip.width() - nameWidth) * 0.5;
    m_texts->draw(painter, QPointF(left, baseline), tag.name);
    if (!countShown)
        return;
    const QString count = QString::number(tag.fileCount);
    const qreal countLeft = chip.x() + size.width() - ChipMetrics::textMargin - metrics.textWidth(count);
    m_texts->draw(painter, QPointF(countLeft, chip.y() + size.height() - countBaseline), count);
}

void VLTagDelegate::paintAddChip(QPainter* painter, const QStyleOptionViewItem& option) const
{
    painter->setPen(VLSkinSetting::GetInstance()->GetRightFont1());
    QRect chip(option.rect.topLeft(), QSize(ChipMetrics::addChipWidth, ChipMetrics::height));
    if (m_view && m_view->isFirstEnlarged()) {
        chip.translate(0, enlargedShift);
        chip.setWidth(chip.width() - addChipEnlargedNarrowing);
    }
    painter->drawRoundedRect(chip, addChipRadius, addChipRadius);
    painter->drawText(option.rect.x() + ChipMetrics::textMargin, chip.y() + addChipBaseline, tr("添加标签"));
    painter->drawLine(plusHorizontal.translated(chip.topLeft()));
    painter->drawLine(plusVertical.translated(chip.topLeft()));
}
