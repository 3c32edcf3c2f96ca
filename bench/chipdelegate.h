// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QStyledItemDelegate>

namespace bench {

/// The baseline's chips: the record is taken out of the user role, widths are asked of the font's metrics each time.
/// They look like those of the tag manager.
class ChipDelegate : public QStyledItemDelegate
{
public:
    explicit ChipDelegate(QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QFont m_font;
    QFontMetrics m_metrics;
};

}  // namespace bench
