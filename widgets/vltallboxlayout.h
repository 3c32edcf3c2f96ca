// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>

/// A vertical box layout for columns of any height.
///
/// QBoxLayout clamps what it adds up to 524,287 pixels (QLAYOUTSIZE_MAX), so that the widgets of a taller column
/// overlap. This one sums plain integers. Every item gets its own height (its fixed or hinted one, within its limits);
/// room that is left over goes to the items that expand vertically, or stays empty below the last item.
/// Cost: linear in the number of items for each change of size, nothing while geometry is unchanged.
class VLTallBoxLayout : public QVBoxLayout
{
    Q_OBJECT

public:
    /// Installed on \a parent when it is not null, and owned by it.
    explicit VLTallBoxLayout(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    bool hasHeightForWidth() const override;
    void invalidate() override;
    void setGeometry(const QRect& rect) override;

private:
    struct Sums
    {
        QSize minimum;
        QSize hint;
        QSize maximum;
    };

    const Sums& sums() const;
    void placeItems(const QRect& area);

    mutable Sums m_sums;
    mutable bool m_sumsValid = false;
    bool m_placed = false;
};
