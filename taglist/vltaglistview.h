// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/tagitem.h"
#include "taglist/chipflow.h"
#include "taglist/chipmetrics.h"
#include "taglist/tagrows.h"

#include <QListView>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QPointer>
#include <QSharedPointer>
#include <QVector>

class ITagGroupDataProvider;
class QDrag;
class QLabel;

/// The tags of one letter section (or of one search) as a wrapping flow of chips. GUI thread only.
///
/// The view is exactly as tall as its chips need and never scrolls. Each tag is a TagListRow of a QStandardItemModel,
/// seen through a SortFilterProxyModel. Where a chip stands is known to the ChipFlow alone: the rectangles are those
/// that QListView would give, but a change costs time linear in this list's rows, a look-up is a binary search, and
/// only what is exposed is painted. Adding and removing in bulk costs one merge for the whole batch.
///
/// What the view shows changes when tags are added to it, removed from it or refreshed from their providers, whose
/// signalUpdated() it follows. It only reports what a person does.
class VLTagListView : public QListView
{
    Q_OBJECT

public:
    /// Who hears the host's signals.
    enum class Following
    {
        View,  ///< This view, by itself.
        Owner  ///< Its owner, which hands it what is its own.
    };

    /// \a tags: who hears of changes of the tags' data.
    VLTagListView(const QVector<TagItem>& items, QWidget* parent, Following tags = Following::View);
    ~VLTagListView() override;

    /// File counts stand behind the names.
    void setCountShown(bool shown);
    /// Releasing the right button asks for the context menu.
    void setMenuEnabled(bool enabled);
    /// Chips can be dragged out of the view.
    void setChipDragEnabled(bool enabled);
    /// While either flag is set, chips are drawn larger.
    void setEnlargement(bool first, bool second);
    [[nodiscard]] bool isFirstEnlarged() const { return m_firstEnlargement; }
    [[nodiscard]] ChipLook chipLook() const;
    /// The last row stays last: new rows go before it, and emptying leaves it. Cleared, rows without a name go.
    void setTrailingRow(bool kept);
    /// Room below the chips, in logical pixels.
    void setBottomPad(int pad);
    /// Room above the chips, in logical pixels.
    void setTopMargin(int margin);
    /// Heads the section with its letter at \a x, \a y (logical pixels) and sorts it by name.
    void setLetter(const QString& letter, int x, int y);
    [[nodiscard]] QString letter() const;
    /// What the rows are sorted by closeness to; the order follows with the next change of the rows.
    void setSearchText(const QString& text);
    /// The category whose tags are shown.
    void setGroupProvider(const QSharedPointer<ITagGroupDataProvider>& provider, Following following = Following::View);

    /// Tags that the view holds already are left as they are.
    void addTag(const TagItem& item);
    void addTags(const QVector<TagItem>& items);
    /// Unknown ids are ignored. Emits signalEmpty() when the last row went.
    void removeTags(const QVector<qint64>& tag_ids);
    void removeAllRows();
    /// Reads the tag again from its provider; a tag that belongs to another letter now leaves.
    void refreshTag(qint64 tag_id);
    [[nodiscard]] bool holdsTag(qint64 tag_id) const { return m_rows.contains(tag_id); }
    /// The record of a row of this view's model.
    [[nodiscard]] const TagItem& tagAt(const QModelIndex& index) const;
    /// True while an event of this view is being handled, so that it must not be deleted at once.
    [[nodiscard]] bool isBusy() const { return m_busyDepth > 0; }

    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

signals:
    /// For listeners; nothing in this view emits it.
    void signSelectedChanged(TagItem item, bool selected);
    void signPopMenu(qint64 tag_id, QString name);
    void signCheckTagLinkFile(qint64 tag_id, QString name);
    void signalEmpty();
    /// These tags belong to another letter now.
    void signalCharNoMatch(QVector<qint64> tag_ids);
    /// A tag of this view reported a change.
    void signTagUpdated(qint64 tag_id);

public slots:
    void slotUpdateLayout();
    void slotDelItem(qint64 tag_id);
    void slotAddCallBack(QVector<qint64> tag_ids);
    void slotRemoveCallBack(QVector<qint64> tag_ids);
    void slotUpdateCallBack();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    [[nodiscard]] QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles) override;

private:
    class BusyScope;

    [[nodiscard]] QMetaObject::Connection follow(const TagItem& item);
    void setUpModel();
    void setUpAppearance();
    void setUpScrollBars();
    [[nodiscard]] std::vector<int> chipWidths(int first, int last) const;

    void followModel();
    void invalidateWidths();
    void insertWidths(int first, int last);
    [[nodiscard]] ChipFlow& flow() const;
    void fitHeight();
    void fitSoon();
    void fitNowOrWhenShown();
    void setHoveredIndex(const QModelIndex& index);
    void paintChip(QPainter* painter, QStyleOptionViewItem option, const QModelIndex& index) const;

    void dragChip(const QModelIndex& index);

    bool m_trailingRow = false;
    bool m_firstEnlargement = false;
    bool m_secondEnlargement = false;
    bool m_countShown = false;
    bool m_menuEnabled = false;
    bool m_chipDragEnabled = false;
    int m_bottomPad = 20;
    int m_topMargin = 0;
    QPoint m_pressPosition;
    QLabel* m_letterLabel = nullptr;
    TagRows m_rows;
    QSharedPointer<ITagGroupDataProvider> m_groupProvider;
    mutable ChipFlow m_flow;  ///< One entry for each row of the proxy, in its order; reached through flow().
    mutable bool m_widthsAreCurrent = false;
    QPersistentModelIndex m_hovered;
    QPointer<QDrag> m_drag;
    int m_busyDepth = 0;
    bool m_fitScheduled = false;
    bool m_orderIsCurrent = false;  ///< A layoutChanged() that this view emits itself moves no row.
};
