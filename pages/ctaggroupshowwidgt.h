// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/newestreading.h"

#include <itaggroupdataprovider.h>

#include <QHash>
#include <QListWidget>
#include <QMimeData>
#include <QSharedPointer>
#include <QString>
#include <QVector>

#include <memory>

class CTagGroupItemWidget;

/// The category tiles in rows, sorted by name, with the "Add New" tile at the end.
///
/// The list is at least as tall as its tiles need and never scrolls itself; the page puts it into a scroll area.
/// A category that is renamed moves to its new place. The list only reports. GUI thread only.
class CTagGroupShowWidgt : public QListWidget
{
    Q_OBJECT

public:
    explicit CTagGroupShowWidgt(QWidget* parent = nullptr);
    ~CTagGroupShowWidgt() override;

    /// Shows the "Add New" tile and one tile per provider; called once, on an empty list. O(n log n), one layout.
    void fill(const QVector<QSharedPointer<ITagGroupDataProvider>>& providers);
    /// Adds a tile at its sorted place, behind those of the same name. A null provider, or one for a category that is
    /// shown already, changes nothing. Returns whether a tile was added.
    bool addGroup(const QSharedPointer<ITagGroupDataProvider>& provider);
    /// Removes the tile of that category, also when its record is gone; an unknown id changes nothing.
    /// Returns whether the selected tile was removed.
    bool removeGroup(qint64 g_id);
    /// No tile stays selected; nothing is reported.
    void deselectTiles();
    /// Null when none is.
    [[nodiscard]] CTagGroupItemWidget* selectedTile() const;
    /// The tile of a category; null when it has none.
    [[nodiscard]] CTagGroupItemWidget* tileOf(qint64 g_id) const { return m_tiles.value(g_id); }
    /// Invalid when none is.
    [[nodiscard]] QModelIndex indexOfSelectedTile() const;
    /// Lays out now what waits for the event loop.
    void layOutIfDue();

    /// Lays the tiles out and asks for the height that they take.
    void doItemsLayout() override;

signals:
    /// The selected category's name or tag count changed.
    void signalGroupInfoChanged(QString groupName, int tagCount);
    /// A tile became the only selected one. \a tagCount in decimal.
    void signSelectedChanged(QString groupName, QString tagCount, QSharedPointer<const ITagGroupDataProvider> g_prd);
    /// Requests the category menu. Whatever its name says, \a tag_id is the category's id.
    void signPopMenu(qint64 tag_id, QString name);
    /// The "Add New" tile was clicked.
    void signAddGroup();
    /// A tag was dropped on a category.
    void signAddGroupTag(qint64 g_id, qint64 t_id);
    /// A category was added or changed: open create and rename dialogs close.
    void signalClosePopup();
    /// A chip that is dragged came over a tile, with that data; null when it left or was dropped.
    void dragMovedOver(QWidget* target, const QMimeData* data);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void updateEditorGeometries() override;

private:
    void setUpView();
    /// A category as it was read. Reading may run anything in the host, inserting what was read runs nothing.
    struct Group
    {
        explicit Group(const QSharedPointer<ITagGroupDataProvider>& provider);

        qint64 id;
        std::unique_ptr<CTagGroupItemWidget> tile;
        QString name;
    };

    CTagGroupItemWidget* insertTile(int row, std::unique_ptr<CTagGroupItemWidget> newTile);
    void insertGroup(int row, Group group);
    void connectTile(CTagGroupItemWidget* tile);
    void selectOnly(CTagGroupItemWidget* tile);
    void placeByName(QSharedPointer<ITagGroupDataProvider> provider);

    /// In the order of the tiles: row i shows provider i.
    QVector<QSharedPointer<ITagGroupDataProvider>> m_providers;
    bool m_showAddTile = true;
    /// The name by which row i was placed. Sorted, while the names of the host may have changed since.
    QVector<QString> m_sortNames;
    QHash<qint64, CTagGroupItemWidget*> m_tiles;
    NewestReading<const ITagGroupDataProvider*> m_nameReadings;
    bool m_layoutDue = false;  ///< Rows came, went or moved, and the next turn of the event loop lays them out.
};
