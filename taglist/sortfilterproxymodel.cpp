// SPDX-License-Identifier: MIT
#include "taglist/sortfilterproxymodel.h"

#include "plugin/state/tagsearch.h"
#include "taglist/taglistrow.h"

#include <QStandardItemModel>

namespace {

const QString& nameAt(const QModelIndex& index)
{
    const auto* model = static_cast<const QStandardItemModel*>(index.model());
    return static_cast<const TagListRow*>(model->itemFromIndex(index))->tag().name;
}

/// The first 16 bytes of a text in which each code unit takes one, two or three bytes as in UTF-8: bytes compare as the
/// code units do, surrogates included.
SortFilterProxyModel::OrderPrefix firstBytes(const QString& text)
{
    constexpr int byteBits = 8;
    constexpr int wordBytes = 8;
    SortFilterProxyModel::OrderPrefix words{};
    int used = 0;
    const auto append = [&](unsigned byte) {
        if (used < 2 * wordBytes)
            words[used / wordBytes] |= static_cast<quint64>(byte) << (wordBytes - 1 - used % wordBytes) * byteBits;
        ++used;
    };
    for (const QChar character : text) {
        const unsigned unit = character.unicode();
        if (unit < 0x80) {
            append(unit);
        } else {
            append(unit < 0x800 ? 0xC0 | unit >> 6 : 0xE0 | unit >> 12);
            if (unit >= 0x800)
                append(0x80 | (unit >> 6 & 0x3F));
            append(0x80 | (unit & 0x3F));
        }
        if (used >= 2 * wordBytes)
            break;
    }
    return words;
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
    const int leftCloseness = closeness(left);
    const int rightCloseness = closeness(right);
    if (leftCloseness != rightCloseness)
        return leftCloseness < rightCloseness;
    return left < right;
}

SortFilterProxyModel::OrderPrefix SortFilterProxyModel::orderPrefix(const QString& name) const
{
    const int rank = closeness(name);
    // The rank takes the place of the last two bits; what they told apart is left to the comparison of the names.
    constexpr unsigned rankBits = 2;
    constexpr unsigned restBits = 64 - rankBits;
    const auto [first, second] = firstBytes(name);
    return {static_cast<quint64>(rank) << restBits | first >> rankBits, first << restBits | second >> rankBits};
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

/// Without sort-by-search every name is equally close.
int SortFilterProxyModel::closeness(const QString& name) const
{
    return m_sortBySearch ? tagsearch::closeness(m_searchText, name) : tagsearch::Equal;
}
