// SPDX-License-Identifier: MIT
#include "host/app/files/filetiledelegate.h"

#include "host/app/files/filelistmodel.h"
#include "host/app/files/filetilelayout.h"

#include <vlskinsetting.h>

#include <QPainter>
#include <QStyleOptionViewItem>

namespace {

constexpr double tileRadius = 6;
constexpr int nameFontPixels = 12;
constexpr int noticeFontPixels = 11;

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

QFont fontOfPixels(QFont font, int pixels)
{
    font.setPixelSize(pixels);
    return font;
}

// A torn picture: a frame, a mountain, and a crack across it.
void paintBrokenPicture(QPainter* painter, const QPointF& center, const QColor& color)
{
    painter->setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->translate(center);
    painter->drawRoundedRect(QRectF(-18, -14, 36, 28), 3, 3);
    const QPointF mountain[] = {{-18, 9}, {-7, -2}, {0, 5}, {6, -1}, {18, 10}};
    painter->drawPolyline(mountain, 5);
    painter->drawLine(QPointF(-22, 18), QPointF(22, -18));
    painter->translate(-center);
}

}  // namespace

FileTileDelegate::FileTileDelegate(QObject* parent)
    : QAbstractItemDelegate(parent)
{
}

void FileTileDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const FileTileLayout layout = FileTileLayout::of(option.rect);
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    paintBackground(painter, option, layout);
    paintPicture(painter, layout, index.data(FileListModel::ThumbnailRole).value<Thumbnail>());
    paintName(painter, option, layout, index.data(Qt::DisplayRole).toString());
    painter->restore();
}

QSize FileTileDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const
{
    return FileTileLayout::tileSize;
}

void FileTileDelegate::paintBackground(QPainter* painter, const QStyleOptionViewItem& option,
                                       const FileTileLayout& layout) const
{
    const QColor mark = VLSkinSetting::GetInstance()->GetPopupWinBlueColor();
    painter->setPen(Qt::NoPen);
    if (option.state & QStyle::State_Selected)
        painter->setBrush(withAlpha(mark, 90));
    else if (option.state & QStyle::State_MouseOver)
        painter->setBrush(withAlpha(mark, 36));
    else
        return;
    painter->drawRoundedRect(layout.background, tileRadius, tileRadius);
}

void FileTileDelegate::paintPicture(QPainter* painter, const FileTileLayout& layout, const Thumbnail& thumbnail) const
{
    if (thumbnail.state == Thumbnail::Loaded) {
        const double scale = painter->device()->devicePixelRatioF();
        painter->drawImage(layout.thumbnailRect(thumbnail.image.size(), scale), thumbnail.image);
        return;
    }
    painter->setPen(Qt::NoPen);
    painter->setBrush(withAlpha(VLSkinSetting::GetInstance()->GetTextColor(0), 18));
    painter->drawRoundedRect(layout.picture, tileRadius, tileRadius);
    if (thumbnail.state == Thumbnail::Unreadable)
        paintNotice(painter, layout, tr("Cannot be shown"));
    else if (thumbnail.state == Thumbnail::Missing)
        paintNotice(painter, layout, tr("File not found"));
}

void FileTileDelegate::paintNotice(QPainter* painter, const FileTileLayout& layout, const QString& text) const
{
    const QColor color = withAlpha(VLSkinSetting::GetInstance()->GetTextColor(0), 170);
    paintBrokenPicture(painter, QRectF(layout.picture).center() - QPointF(0, 10), color);
    painter->setFont(fontOfPixels(painter->font(), noticeFontPixels));
    painter->drawText(layout.picture.adjusted(4, 84, -4, -8), Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine,
                      text);
}

void FileTileDelegate::paintName(QPainter* painter, const QStyleOptionViewItem& option, const FileTileLayout& layout,
                                 const QString& name) const
{
    painter->setFont(fontOfPixels(option.font, nameFontPixels));
    painter->setPen(VLSkinSetting::GetInstance()->GetTextColor(1));
    // A name may hold line feeds; on its one line they are spaces.
    const QString shown = painter->fontMetrics().elidedText(name.simplified(), Qt::ElideMiddle, layout.name.width());
    painter->drawText(layout.name, Qt::AlignCenter | Qt::TextSingleLine, shown);
}
