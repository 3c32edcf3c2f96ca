// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"

#include <QHash>
#include <QMetaObject>
#include <QModelIndex>
#include <QVector>

#include <functional>

class QObject;
class QStandardItemModel;
class SortFilterProxyModel;
class TagListRow;

/// The rows of one tag list: a standard item model seen through a sorting proxy, and the map from tag ids to rows.
///
/// A few tags are added and removed row by row. A batch that is large against the list is merged at once: the rows are
/// taken out in their order, the batch is merged in, and the proxy is attached again to rows that it need not sort.
/// Both ways end in the same state; views see the second one as a model reset.
class TagRows
{
public:
    /// Connects a tag's changes to whoever shows it; the row cuts the connection when it goes.
    using Follow = std::function<QMetaObject::Connection(const TagItem&)>;

    /// The models are owned by \a owner. The proxy gets its source with the first tags, which it then need not follow
    /// one by one, or by open().
    TagRows(QObject* owner, Follow follow);
    void open();

    [[nodiscard]] SortFilterProxyModel* proxy() const { return m_proxy; }
    [[nodiscard]] int count() const;
    [[nodiscard]] bool contains(qint64 tag_id) const { return m_rowOfTag.contains(tag_id); }
    /// Null for a tag that has no row.
    [[nodiscard]] TagListRow* rowOfTag(qint64 tag_id) const { return m_rowOfTag.value(tag_id); }
    /// The row behind a valid index of the proxy.
    [[nodiscard]] TagListRow* rowAt(const QModelIndex& index) const;
    /// The proxy's index of a row.
    [[nodiscard]] QModelIndex indexOf(const TagListRow* row) const;

    /// A row that stays last in the source model while others are added before it.
    void setTrailingRow(bool kept);

    /// Tags that have a row already are left as they are; of several records of one tag, one counts.
    void add(QVector<TagItem> items);
    /// Unknown ids are ignored.
    void remove(const QVector<qint64>& tag_ids);
    /// Removes everything but a trailing row.
    void clear();
    /// Replaces the record of a row and keeps the order.
    void update(TagListRow* row, const TagItem& item);

private:
    [[nodiscard]] bool isLargeBatch(int size) const;
    [[nodiscard]] QVector<TagItem> inOrder(QVector<TagItem> items) const;
    [[nodiscard]] QVector<TagListRow*> makeRows(QVector<TagItem> items);
    [[nodiscard]] QVector<TagListRow*> takeRowsInOrder();
    void putRowsInOrder(const QVector<TagListRow*>& rows);
    void removeRowByRow(const QVector<qint64>& tag_ids);
    void removeAtOnce(const QVector<qint64>& tag_ids);
    void removeNamelessRows();

    Follow m_follow;
    QStandardItemModel* m_model;
    SortFilterProxyModel* m_proxy;
    QHash<qint64, TagListRow*> m_rowOfTag;  ///< The rows are owned by the model.
    bool m_trailingRow = false;
};
