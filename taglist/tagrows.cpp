// SPDX-License-Identifier: MIT
#include "taglist/tagrows.h"

#include "taglist/sortfilterproxymodel.h"
#include "taglist/tagrow.h"

#include <QStandardItemModel>

#include <algorithm>
#include <iterator>

namespace {

/// Up to so many rows go one by one; more do while they are a small part of the list.
constexpr int smallBatch = 8;
constexpr int smallBatchDivisor = 32;

}  // namespace

TagRows::TagRows(QObject* owner, Follow follow)
    : m_follow(std::move(follow))
    , m_model(new QStandardItemModel(owner))
    , m_proxy(new SortFilterProxyModel(owner))
{
    m_proxy->setSourceModel(m_model);
    m_proxy->sort(0);
}

int TagRows::count() const
{
    return m_model->rowCount();
}

TagRow* TagRows::rowAt(const QModelIndex& index) const
{
    return static_cast<TagRow*>(m_model->itemFromIndex(m_proxy->mapToSource(index)));
}

QModelIndex TagRows::indexOf(const TagRow* row) const
{
    return m_proxy->mapFromSource(m_model->indexFromItem(row));
}

void TagRows::setTrailingRow(bool kept)
{
    m_trailingRow = kept;
    if (!kept)
        removeNamelessRows();
}

void TagRows::add(const QVector<TagItem>& items)
{
    QVector<TagRow*> added = makeRows(items);
    if (added.isEmpty())
        return;
    if (!isLargeBatch(added.size())) {
        for (TagRow* row : qAsConst(added))
            m_model->insertRow(std::max(count() - (m_trailingRow ? 1 : 0), 0), row);
        return;
    }
    const auto comesBefore = [this](const TagRow* left, const TagRow* right) {
        return m_proxy->comesBefore(left->tag().name, right->tag().name);
    };
    std::stable_sort(added.begin(), added.end(), comesBefore);
    const QVector<TagRow*> present = takeRowsInOrder();
    QVector<TagRow*> merged;
    merged.reserve(present.size() + added.size());
    std::merge(present.begin(), present.end(), added.begin(), added.end(), std::back_inserter(merged), comesBefore);
    putRowsInOrder(merged);
}

void TagRows::remove(const QVector<qint64>& tag_ids)
{
    if (isLargeBatch(tag_ids.size()))
        removeAtOnce(tag_ids);
    else
        removeRowByRow(tag_ids);
}

void TagRows::clear()
{
    if (m_trailingRow && count() > 0) {
        const TagRow* last = rowAt(m_proxy->index(m_proxy->rowCount() - 1, 0));
        const int lastRow = last->row();
        m_model->removeRows(lastRow + 1, count() - lastRow - 1);
        m_model->removeRows(0, lastRow);
    } else {
        m_model->removeRows(0, count());
    }
    m_rowOfTag.clear();
}

void TagRows::update(TagRow* row, const TagItem& item)
{
    if (row->tag().name != item.name) {
        row->setTag(item);
        return;
    }
    // The proxy would take the row out and sort it in again for any change of its source.
    row->replaceTag(item);
    const QModelIndex index = indexOf(row);
    emit m_proxy->dataChanged(index, index, {Qt::UserRole});
}

bool TagRows::isLargeBatch(int size) const
{
    return size > smallBatch && size > count() / smallBatchDivisor;
}

QVector<TagRow*> TagRows::makeRows(const QVector<TagItem>& items)
{
    QVector<TagRow*> rows;
    rows.reserve(items.size());
    m_rowOfTag.reserve(m_rowOfTag.size() + items.size());
    for (const TagItem& item : items) {
        TagRow*& row = m_rowOfTag[item.id];
        if (row)
            continue;
        row = new TagRow(item, m_follow(item));
        rows.append(row);
    }
    return rows;
}

QVector<TagRow*> TagRows::takeRowsInOrder()
{
    QVector<TagRow*> rows;
    rows.reserve(count());
    for (int row = 0; row < m_proxy->rowCount(); ++row)
        rows.append(rowAt(m_proxy->index(row, 0)));
    m_proxy->setSourceModel(nullptr);
    m_model->takeColumn(0);
    m_model->setRowCount(0);
    return rows;
}

void TagRows::putRowsInOrder(const QVector<TagRow*>& rows)
{
    QList<QStandardItem*> items;
    items.reserve(rows.size());
    std::copy(rows.begin(), rows.end(), std::back_inserter(items));
    m_model->appendColumn(items);
    m_proxy->setSortedSourceModel(m_model);
}

void TagRows::removeRowByRow(const QVector<qint64>& tag_ids)
{
    for (const qint64 id : tag_ids) {
        if (const TagRow* row = m_rowOfTag.take(id))
            m_model->removeRow(row->row());
    }
}

void TagRows::removeAtOnce(const QVector<qint64>& tag_ids)
{
    QVector<TagRow*> gone;
    for (const qint64 id : tag_ids) {
        if (TagRow* row = m_rowOfTag.take(id))
            gone.append(row);
    }
    if (gone.isEmpty())
        return;
    QVector<TagRow*> rows = takeRowsInOrder();
    const auto isGone = [this](const TagRow* row) { return !m_rowOfTag.contains(row->tag().id); };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isGone), rows.end());
    putRowsInOrder(rows);
    qDeleteAll(gone);
}

void TagRows::removeNamelessRows()
{
    QVector<qint64> nameless;
    for (auto it = m_rowOfTag.cbegin(); it != m_rowOfTag.cend(); ++it) {
        if (it.value()->tag().name.isEmpty())
            nameless.append(it.key());
    }
    removeRowByRow(nameless);
}
