// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"
#include "taglist/chipmetrics.h"
#include "taglist/chiptexts.h"

#include <QPointer>
#include <QSharedPointer>
#include <QStyledItemDelegate>

class VLTagListView;

/// Paints the rows of a tag list as rounded chips in the tags' colours; a row without a name as the chip that adds a
/// tag. All lengths are logical pixels.
class VLTagDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// What the chips show is asked of \a view when it is a VLTagListView.
    explicit VLTagDelegate(QObject* view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

signals:
    /// For listeners; nothing in this class emits it.
    void signOpenTagTab();
    /// For listeners; nothing in this class emits it.
    void signRemoveTag(TagItem data);

private:
    [[nodiscard]] ChipLook look() const;
    [[nodiscard]] TagItem tagAt(const QModelIndex& index) const;
    void paintTagChip(QPainter* painter, const QStyleOptionViewItem& option, const TagItem& tag) const;
    void paintChipText(QPainter* painter, const QRectF& chip, int baseline, QSize size, const TagItem& tag) const;
    void paintAddChip(QPainter* painter, const QStyleOptionViewItem& option) const;

    QPointer<VLTagListView> m_view;
    QSharedPointer<ChipTexts> m_texts;
};
