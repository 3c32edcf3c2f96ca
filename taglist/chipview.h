// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"
#include "taglist/chipflow.h"
#include "taglist/chipmetrics.h"
#include "taglist/tagrows.h"

#include <QListView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QVector>

#include <vector>

class QHelpEvent;

/// A wrapping flow of chips that is exactly as tall as they need and never scrolls. GUI thread only.
///
/// Each chip is a TagListRow of a QStandardItemModel, seen through a SortFilterProxyModel. Where a chip stands is known
/// to the ChipFlow alone: the rectangles are those that QListView would give, but a change costs time linear in this
/// list's rows, a look-up is a binary search, and only what is exposed is painted. Adding and removing in bulk costs
/// one merge for the whole batch.
class ChipView : public QListView
{
    Q_OBJECT

public:
    ~ChipView() override;

    /// File counts stand behind the names.
    void setCountShown(bool shown);
    /// While either flag is set, chips are drawn larger.
    void setEnlargement(bool first, bool second);
    [[nodiscard]] bool isFirstEnlarged() const { return m_firstEnlargement; }
    [[nodiscard]] ChipLook chipLook() const;
    /// Room below the chips, in logical pixels.
    void setBottomPad(int pad);
    /// Room above the chips, in logical pixels.
    void setTopMargin(int margin);
    /// Takes that width, in logical pixels, and the height that the chips need at it: for a view that is about to be
    /// shown, so that the layout around it has its height from the start.
    void fitToWidth(int width);

    /// Lightens the chip under the pointer, in whichever view it is, in the next turn of the event loop: for when chips
    /// moved under a pointer that rests, or a popup hid from them where it went.
    static void followPointerSoon();

    /// The record of a row of this view's model.
    [[nodiscard]] const TagItem& tagAt(const QModelIndex& index) const;
    /// True while an event of this view is being handled, so that it must not be deleted at once.
    [[nodiscard]] bool isBusy() const { return m_busyDepth > 0; }

    /// The first chip that reaches below \a y, in logical pixels of the viewport; invalid when there is none.
    [[nodiscard]] QModelIndex firstChipFrom(int y) const;

    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

public slots:
    void slotUpdateLayout();

protected:
    class BusyScope;

    ChipView(QWidget* parent, TagRows::Follow follow);
    /// To be called once by the constructor of a derived class, which \a follow of the rows may need.
    void setUp(QVector<TagItem> items);
    [[nodiscard]] TagRows& rows() { return m_rows; }
    [[nodiscard]] const TagRows& rows() const { return m_rows; }
    void fitSoon();
    void fitNowOrWhenShown();

    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles) override;

private:
    void setUpModel();
    void setUpAppearance();
    void setUpScrollBars();
    void followModel();
    [[nodiscard]] std::vector<int> chipWidths(int first, int last) const;
    void invalidateWidths();
    void insertWidths(int first, int last);
    [[nodiscard]] ChipFlow& flow() const;
    void fitHeight();
    static void followPointer();
    void showToolTip(const QHelpEvent* event);
    void setHoveredIndex(const QModelIndex& index);
    void updateChip(const QModelIndex& index);
    void paintChip(QPainter* painter, QStyleOptionViewItem option, const QModelIndex& index) const;

    bool m_firstEnlargement = false;
    bool m_secondEnlargement = false;
    bool m_countShown = false;
    int m_bottomPad = 20;
    int m_topMargin = 0;
    TagRows m_rows;
    mutable ChipFlow m_flow;  ///< One entry for each row of the proxy, in its order; reached through flow().
    mutable bool m_widthsAreCurrent = false;
    QPersistentModelIndex m_hovered;
    int m_busyDepth = 0;
    bool m_fitScheduled = false;
    bool m_orderIsCurrent = false;  ///< A layoutChanged() that this view emits itself moves no row.
};

/// Counts the handlers of a view that are on the stack; safe when the view is deleted by what they trigger.
class ChipView::BusyScope
{
public:
    explicit BusyScope(ChipView* view)
        : m_view(view)
    {
        ++view->m_busyDepth;
    }
    ~BusyScope()
    {
        if (m_view)
            --m_view->m_busyDepth;
    }
    [[nodiscard]] bool viewIsGone() const { return m_view.isNull(); }

private:
    Q_DISABLE_COPY(BusyScope)
    QPointer<ChipView> m_view;
};
