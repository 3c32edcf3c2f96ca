// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>
#include <QString>

#include <array>

/// The order of a tag list: by name, or by closeness to a search text.
///
/// Names are compared by UTF-16 code unit. With sort-by-search, the name that equals the search text comes first, then
/// the names that start with it, then all others. The others keep no defined order for the person who searches; they
/// are ordered by name here as well, because sorting needs a strict order. The source model must hold TagListRow items
/// only.
class SortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit SortFilterProxyModel(QObject* parent = nullptr);

    [[nodiscard]] bool isSortedBySearch() const { return m_sortBySearch; }
    /// Takes effect at the next sorting.
    void setSortBySearch(bool enabled);
    /// Takes effect at the next sorting.
    void setSearchText(const QString& text);
    [[nodiscard]] const QString& searchText() const { return m_searchText; }

    /// The order as a strict comparison of two names.
    [[nodiscard]] bool comesBefore(const QString& left, const QString& right) const;
    /// Where a name stands, as far as its beginning tells: names that differ here are in the order of these numbers,
    /// names that do not have to be compared.
    using OrderPrefix = std::array<quint64, 2>;
    [[nodiscard]] OrderPrefix orderPrefix(const QString& name) const;
    /// As setSourceModel() for rows that stand in order already: they are taken as they stand, without comparing names.
    void setSortedSourceModel(QAbstractItemModel* model);

protected:
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    [[nodiscard]] int closeness(const QString& name) const;

    bool m_sortBySearch = true;
    QString m_searchText;
    bool m_sourceIsSorted = false;
};
