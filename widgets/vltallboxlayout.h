// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>
#include <QVector>

/// A vertical box layout for columns of any height.
///
/// QBoxLayout clamps what it adds up to 524,287 pixels (QLAYOUTSIZE_MAX), so that the widgets of a taller column
/// overlap. This one sums plain integers. Every item gets its own height (its fixed or hinted one, within its limits);
/// room that is left over goes to the items that stretch or expand vertically, or stays empty below the last item. Too
/// little room is taken from the items that can shrink. As in QVBoxLayout, no spacing surrounds spacers, and hidden
/// widgets count for nothing.
/// Cost: linear in the number of items for each change of size, nothing while geometry is unchanged.
class VLTallBoxLayout : public QVBoxLayout
{
    Q_OBJECT

public:
    /// Installed on \a parent when it is not null, and owned by it.
    explicit VLTallBoxLayout(QWidget* parent = nullptr);
    ~VLTallBoxLayout() override;

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override;
    void invalidate() override;
    void setGeometry(const QRect& rect) override;

private:
    /// What all items need together, without the margins.
    struct Sums
    {
        QSize minimum{0, 0};
        QSize hint{0, 0};
        QSize maximum{0, 0};
        Qt::Orientations expanding;
        bool heightForWidth = false;
    };
    /// One item's height while room is shared out.
    struct Cell
    {
        QLayoutItem* item;
        int minimum;
        int height;
        int maximum;
        int share;         ///< Weight with which it takes part in room that is left over.
        int spacingAbove;  ///< Between this item and the one before.
    };

    const Sums& sums() const;
    QSize marginSize() const;
    /// The items that take part, each with its hinted height at \a width.
    QVector<Cell> cells(int width) const;
    static void grow(QVector<Cell>& cells, qint64 room);
    static void shrink(QVector<Cell>& cells, qint64 lack);
    void placeItems(const QRect& area);
    void liftClampedLimit();

    mutable Sums m_sums;
    mutable bool m_sumsValid = false;
    bool m_placed = false;
};
