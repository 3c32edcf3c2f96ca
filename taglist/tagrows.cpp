// SPDX-License-Identifier: MIT
#include "taglist/tagrows.h"

#include "taglist/sortfilterproxymodel.h"
#include "taglist/taglistrow.h"

#include <QStandardItemModel>

#include <algorithm>
#include <iterator>
#include <vector>

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
    m_proxy->sort(0);
}

void TagRows::open()
{
    if (!m_proxy->sourceModel())
        m_proxy->setSourceModel(m_model);
}

int TagRows::count() const
{
    return m_model->rowCount();
}

TagListRow* TagRows::rowAt(const QModelIndex& index) const
{
    return static_cast<TagListRow*>(m_model->itemFromIndex(m_proxy->mapToSource(index)));
}

QModelIndex TagRows::indexOf(const TagListRow* row) const
{
    return m_proxy->mapFromSource(m_model->indexFromItem(row));
}

void TagRows::setTrailingRow(bool kept)
{
    m_trailingRow = kept;
    if (!kept)
        removeNamelessRows();
}

void TagRows::add(QVector<TagItem> items)
{
    if (m_proxy->sourceModel() && !isLargeBatch(items.size())) {
        const QVector<TagListRow*> added = makeRows(std::move(items));
        for (TagListRow* row : added)
            m_model->insertRow(std::max(count() - (m_trailingRow ? 1 : 0), 0), row);
        return;
    }
    // Rows that are made in their order lie in that order in memory, too.
    const QVector<TagListRow*> added = makeRows(inOrder(std::move(items)));
    if (added.isEmpty())
        return;
    if (count() == 0) {
        putRowsInOrder(added);
        return;
    }
    const QVector<TagListRow*> present = takeRowsInOrder();
    const auto comesBefore = [this](const TagListRow* left, const TagListRow* right) {
        return m_proxy->comesBefore(left->tag().name, right->tag().name);
    };
    QVector<TagListRow*> merged;
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
        const TagListRow* last = rowAt(m_proxy->index(m_proxy->rowCount() - 1, 0));
        const int lastRow = last->row();
        m_model->removeRows(lastRow + 1, count() - lastRow - 1);
        m_model->removeRows(0, lastRow);
    } else {
        m_model->removeRows(0, count());
    }
    m_rowOfTag.clear();
}

void TagRows::update(TagListRow* row, const TagItem& item)
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

/// Most pairs are told apart by what is stored beside them: comparing names jumps about in memory.
QVector<TagItem> TagRows::inOrder(QVector<TagItem> items) const
{
    struct Entry
    {
        SortFilterProxyModel::OrderPrefix prefix;
        TagItem* item;
    };
    std::vector<Entry> entries;
    entries.reserve(items.size());
    for (TagItem& item : items)
        entries.push_back({m_proxy->orderPrefix(item.name), &item});
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return left.prefix != right.prefix ? left.prefix < right.prefix : left.item->name < right.item->name;
    });
    QVector<TagItem> sorted;
    sorted.reserve(items.size());
    for (const Entry& entry : entries)
        sorted.append(std::move(*entry.item));
    return sorted;
}

QVector<TagListRow*> TagRows::makeRows(QVector<TagItem> items)
{
    QVector<TagListRow*> rows;
    rows.reserve(items.size());
    m_rowOfTag.reserve(m_rowOfTag.size() + items.size());
    for (TagItem& item : items) {
        TagListRow*& row = m_rowOfTag[item.id];
        if (row)
            continue;
        QMetaObject::Connection updates = m_follow(item);
        row = new TagListRow(std::move(item), std::move(updates));
        rows.append(row);
    }
    return rows;
}

QVector<TagListRow*> TagRows::takeRowsInOrder()
{
    QVector<TagListRow*> rows;
    rows.reserve(count());
    for (int row = 0; row < m_proxy->rowCount(); ++row)
        rows.append(rowAt(m_proxy->index(row, 0)));
    m_proxy->setSourceModel(nullptr);
    m_model->takeColumn(0);
    m_model->setRowCount(0);
    return rows;
}

/// The model has no rows.
void TagRows::putRowsInOrder(const QVector<TagListRow*>& rows)
{
    if (m_proxy->sourceModel())
        m_proxy->setSourceModel(nullptr);
    m_model->setColumnCount(0);
    QList<QStandardItem*> items;
    items.reserve(rows.size());
    std::copy(rows.begin(), rows.end(), std::back_inserter(items));
    m_model->appendColumn(items);
    m_proxy->setSortedSourceModel(m_model);
}

void TagRows::removeRowByRow(const QVector<qint64>& tag_ids)
{
    for (const qint64 id : tag_ids) {
        if (const TagListRow* row = m_rowOfTag.take(id))
            m_model->removeRow(row->row());
    }
}

void TagRows::removeAtOnce(const QVector<qint64>& tag_ids)
{
    QVector<TagListRow*> gone;
    for (const qint64 id : tag_ids) {
        if (TagListRow* row = m_rowOfTag.take(id))
            gone.append(row);
    }
    if (gone.isEmpty())
        return;
    QVector<TagListRow*> rows = takeRowsInOrder();
    const auto isGone = [this](const TagListRow* row) { return !m_rowOfTag.contains(row->tag().id); };
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
