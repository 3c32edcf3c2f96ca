// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QScrollArea>

/// A scroll area around item views that do not scroll themselves and whose content is as wide as the area. GUI thread
/// only.
///
/// A change of the area's width moves the items to other lines. One of them then stays where it is on the screen, as
/// far as the content reaches: the one that a person dealt with last while it is in view, else the topmost one in view.
/// Several changes in a row keep the same item, so that the way back ends where it began. The content is laid out
/// before a change of width returns.
class SteadyScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit SteadyScrollArea(QWidget* parent = nullptr);
    ~SteadyScrollArea() override;

    /// Gives the content the height that its views need by now.
    virtual void layOutContent();

protected:
    struct Item
    {
        QPointer<QAbstractItemView> view;
        QPersistentModelIndex index;
    };

    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

    /// The item that a person dealt with last; without a view when there is none.
    [[nodiscard]] virtual Item currentItem() const = 0;
    /// The topmost item that reaches into view; without a view when there is none.
    [[nodiscard]] virtual Item topmostItem() const = 0;

private:
    /// In logical pixels of the viewport.
    [[nodiscard]] int topOf(const Item& item) const;
    [[nodiscard]] bool isShown(const Item& item) const;
    [[nodiscard]] bool isInView(const Item& item) const;
    void chooseKeptItem();
    void keepItem();

    Item m_kept;
    QPersistentModelIndex m_current;  ///< The current item when the kept one was chosen.
    int m_wantedTop = 0;              ///< Of the kept item, when the content reaches far enough.
    int m_leftTop = 0;                ///< Of the kept item after the last change of width.
    bool m_wasLaidOut = false;
};
