// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemDelegate>

struct FileTileLayout;
struct Thumbnail;

/// Paints the tile of one file: its thumbnail or a placeholder, and its name.
class FileTileDelegate : public QAbstractItemDelegate
{
    Q_OBJECT

public:
    explicit FileTileDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void paintBackground(QPainter* painter, const QStyleOptionViewItem& option, const FileTileLayout& layout) const;
    void paintPicture(QPainter* painter, const FileTileLayout& layout, const Thumbnail& thumbnail) const;
    void paintNotice(QPainter* painter, const FileTileLayout& layout, const QString& text) const;
    void paintName(QPainter* painter, const QStyleOptionViewItem& option, const FileTileLayout& layout,
                   const QString& name) const;
};
