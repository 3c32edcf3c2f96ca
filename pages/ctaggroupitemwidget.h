// SPDX-License-Identifier: MIT
#pragma once

#include <itaggroupdataprovider.h>

#include <QMimeData>
#include <QSharedPointer>
#include <QString>
#include <QWidget>

class QLabel;
class QPainter;
class VLGroupLabel;

/// One category as a square tile, 78 logical pixels wide and high, or the "Add New" tile, which has no provider.
///
/// A click selects it, a right click asks for its menu, a tag chip dropped on it asks to file the tag. The tile only
/// reports; it shows what its provider says. GUI thread only.
class CTagGroupItemWidget : public QWidget
{
    Q_OBJECT

public:
    /// Width and height of every tile in logical pixels.
    static constexpr int sideLength = 78;

    /// \a provider: null for the "Add New" tile.
    CTagGroupItemWidget(const QSharedPointer<ITagGroupDataProvider>& provider, QWidget* parent);
    ~CTagGroupItemWidget() override;

    [[nodiscard]] const QSharedPointer<ITagGroupDataProvider>& provider() const { return m_provider; }
    /// The id in the category's record as it is now; taggroupid::none without one.
    [[nodiscard]] qint64 groupId() const;

    [[nodiscard]] bool isSelected() const { return m_selected; }
    /// Only changes the look; nothing is reported.
    void setSelected(bool selected);
    /// Selects the tile and reports it, as a click does; nothing when it is selected.
    void select();

signals:
    /// The selected category's name or tag count changed.
    void signalGroupInfoChanged(QString groupName, int tagCount);
    /// The tile became selected by a click. \a tagCount in decimal.
    void signSelectedChanged(QString groupName, QString tagCount, QSharedPointer<const ITagGroupDataProvider> g_prd);
    /// Requests the category menu. Whatever its name says, \a tag_id is the category's id.
    void signPopMenu(qint64 tag_id, QString name);
    /// The "Add New" tile was clicked.
    void signAddGroup();
    /// A tag was dropped on the category.
    void signAddGroupTag(qint64 g_id, qint64 t_id);
    /// The category's data changed: open create and rename dialogs close.
    void signalClosePopup();
    /// A chip that is dragged came over \a target, this tile, with that data; null when it left or was dropped.
    void dragMovedOver(QWidget* target, const QMimeData* data);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;

private:
    void showRecord(const QString& name, int tagCount);
    void createLabels(const QString& name);
    void updateFromProvider();
    void setDropTarget(bool isTarget, const QMimeData* dragged);
    void paintCategory(QPainter& painter) const;
    void paintAddNew(QPainter& painter) const;

    QSharedPointer<ITagGroupDataProvider> m_provider;
    VLGroupLabel* m_nameLabel = nullptr;  ///< Null while the provider has had no record.
    QString m_name;
    QLabel* m_countLabel = nullptr;  ///< Null together with the name label.
    bool m_selected = false;
    bool m_dropTarget = false;  ///< A chip hangs over the tile, and a drop would file its tag.
    int m_readings = 0;         ///< Begun so far; only the newest one is shown.
};
