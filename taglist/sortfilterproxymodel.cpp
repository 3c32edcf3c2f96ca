// SPDX-License-Identifier: MIT
#include "taglist/sortfilterproxymodel.h"

#include "taglist/taglistrow.h"

#include <QStandardItemModel>

namespace {

const QString& nameAt(const QModelIndex& index)
{
    const auto* model = static_cast<const QStandardItemModel*>(index.model());
    return static_cast<const TagListRow*>(model->itemFromIndex(index))->tag().name;
}

}  // namespace

SortFilterProxyModel::SortFilterProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
}

void SortFilterProxyModel::setSortBySearch(bool enabled)
{
    m_sortBySearch = enabled;
}

void SortFilterProxyModel::setSearchText(const QString& text)
{
    m_searchText = text;
}

bool SortFilterProxyModel::comesBefore(const QString& left, const QString& right) const
{
    // Every name is equally close to no text at all.
    if (m_sortBySearch && !m_searchText.isEmpty()) {
        const int leftCloseness = closeness(left);
        const int rightCloseness = closeness(right);
        if (leftCloseness != rightCloseness)
            return leftCloseness < rightCloseness;
    }
    return left < right;
}

quint64 SortFilterProxyModel::orderPrefix(const QString& name) const
{
    const int rank = m_sortBySearch && !m_searchText.isEmpty() ? closeness(name) : 0;
    constexpr int storedUnits = 4;
    constexpr int unitBits = 16;
    quint64 units = 0;
    for (int i = 0; i < storedUnits; ++i)
        units = units << unitBits | (i < name.size() ? name.at(i).unicode() : 0U);
    // The rank takes the place of the last two bits; what they told apart is left to the comparison of the names.
    constexpr int rankShift = 62;
    return static_cast<quint64>(rank) << rankShift | units >> 2U;
}

void SortFilterProxyModel::setSortedSourceModel(QAbstractItemModel* model)
{
    m_sourceIsSorted = true;
    setSourceModel(model);
    rowCount();  // maps the rows now
    m_sourceIsSorted = false;
}

bool SortFilterProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (m_sourceIsSorted)
        return left.row() < right.row();
    return comesBefore(nameAt(left), nameAt(right));
}

/// 0 for the search text itself, 1 for what starts with it, 2 for the rest.
int SortFilterProxyModel::closeness(const QString& name) const
{
    if (!name.startsWith(m_searchText))
        return 2;
    return name.size() == m_searchText.size() ? 0 : 1;
}
