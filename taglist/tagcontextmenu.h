// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPair>
#include <QString>
#include <QVector>

#include <functional>
#include <optional>

class QAction;
class QMenu;
class QRect;
class QWidget;
class QWidgetAction;
class VLGroupListMenu;
class VLTagColorAction;

/// The context menu of a tag. It knows the entries and their order; receivers of its signals do what the entries say.
class TagContextMenu : public QObject
{
    Q_OBJECT

public:
    /// Ids and names, in the order in which they are offered.
    using Categories = QVector<QPair<qint64, QString>>;

    /// Every category of the open library. The host may do anything from inside the reading.
    [[nodiscard]] static Categories readCategories();

    /// The menus belong to \a owner, which must outlive this object.
    TagContextMenu(QWidget* owner, const Categories& categories);
    /// The host may delete the window from inside what an entry does; the menus then outlive it for a moment.
    ~TagContextMenu() override;

    /// Puts the entries in their order. \a inCategory: the tags shown can be removed from their category.
    void arrange(bool inCategory);
    /// Pops the menu up beside \a item, in logical pixels of the screen, or at the mouse cursor when it is null.
    /// \a colorIndex: the swatch to mark.
    void open(bool isFavorite, int colorIndex, const QRect& item);
    void close();
    [[nodiscard]] VLGroupListMenu* groupList() const { return m_groupList; }

signals:
    void viewFilesChosen();
    void favoriteChosen();
    void renameChosen();
    void colorChosen(int index);
    void deleteChosen();
    void detachChosen();
    void groupChosen(qint64 g_id);

private:
    void carryOut(const std::function<void()>& choice);
    void createActions();
    void createGroupMenu(QWidget* owner, const Categories& categories);
    void createColorRow();
    void fitGroupMenu();

    QMenu* m_menu;
    QMenu* m_groupMenu = nullptr;
    QAction* m_viewFiles = nullptr;
    QAction* m_favorite = nullptr;
    QAction* m_rename = nullptr;
    QAction* m_detach = nullptr;
    QAction* m_delete = nullptr;
    QWidgetAction* m_colorRowAction = nullptr;
    VLTagColorAction* m_colorRow = nullptr;
    VLGroupListMenu* m_groupList = nullptr;
    std::optional<bool> m_inCategory;  ///< How the entries are arranged.
    int m_choicesUnderWay = 0;
};
