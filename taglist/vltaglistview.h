// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/newestreading.h"
#include "taglist/chipview.h"

#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QSharedPointer>
#include <QVector>

class ITagGroupDataProvider;
class LetterLabel;
class QDrag;

/// The tags of one letter section, or of one search, as chips. GUI thread only.
///
/// What the view shows changes when tags are added to it, removed from it or refreshed from their providers, whose
/// signalUpdated() it follows. It only reports what a person does.
class VLTagListView : public ChipView
{
    Q_OBJECT

public:
    /// Who receives the category's signals.
    enum class Following
    {
        View,  ///< This view, by itself.
        Owner  ///< Its owner, which hands it what is its own.
    };

    /// \a follow connects a tag's changes to an owner that calls refreshTag(); without it the view follows its tags
    /// itself.
    VLTagListView(QVector<TagItem> items, QWidget* parent, TagRows::Follow follow = {});
    ~VLTagListView() override;

    /// Releasing the right button asks for the context menu.
    void setMenuEnabled(bool enabled);
    /// Chips can be dragged out of the view.
    void setChipDragEnabled(bool enabled);
    /// The last row stays last: new rows go before it, and emptying leaves it. Cleared, rows without a name go.
    void setTrailingRow(bool kept);
    /// Heads the section with its letter at \a x, \a y (logical pixels) and sorts it by name.
    void setLetter(const QString& letter, int x, int y);
    [[nodiscard]] QString letter() const;
    /// What the rows are sorted by closeness to; the order follows with the next change of the rows.
    void setSearchText(const QString& text);
    /// The category whose tags are shown.
    void setGroupProvider(const QSharedPointer<ITagGroupDataProvider>& provider, Following following = Following::View);

    /// Tags that the view holds already are left as they are.
    void addTag(const TagItem& item);
    void addTags(QVector<TagItem> items);
    /// Unknown ids are ignored. Emits signalEmpty() when the last row is removed.
    void removeTags(const QVector<qint64>& tag_ids);
    void removeAllRows();
    /// Reads the tag again from its provider; a tag that belongs to another letter now leaves. False, and nothing, for
    /// a tag that the view does not hold.
    bool refreshTag(qint64 tag_id);
    [[nodiscard]] bool holdsTag(qint64 tag_id) const { return rows().contains(tag_id); }
    /// Makes the chip of a tag that the view holds the current one and scrolls the area around to it.
    void revealTag(qint64 tag_id);

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
    /// Requests the context menu of the current chip, by keyboard. \a chip: its place on the screen, in logical pixels.
    void signPopMenuByKey(qint64 tag_id, QString name, QRect chip);

public slots:
    void slotDelItem(qint64 tag_id);
    void slotAddCallBack(QVector<qint64> tag_ids);
    void slotRemoveCallBack(QVector<qint64> tag_ids);
    void slotUpdateCallBack();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QMetaObject::Connection followTag(const TagItem& item);
    void repaintLetterWithTheFirstName();
    void dragChip(const QModelIndex& index);
    void askForMenuByKey();

    bool m_menuEnabled = false;
    bool m_chipDragEnabled = false;
    QPoint m_pressPosition;
    LetterLabel* m_letterLabel;
    QSharedPointer<ITagGroupDataProvider> m_groupProvider;
    QPointer<QDrag> m_drag;
    NewestReading<qint64> m_refreshes;
};
