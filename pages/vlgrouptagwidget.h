// SPDX-License-Identifier: MIT
#pragma once

#include "pages/vlalltagwidget.h"

#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QVector>

#include <functional>

class CTagGroupItemWidget;
class CTagGroupShowWidgt;
class ITagAction;
class ITagGroupAction;
class ITagGroupDataProvider;
class QAction;
class QLabel;
class QLayout;
class QMenu;
class TileScrollArea;

/// The Tag Categories page: the categories as tiles on the left, the tags of the selected one on the right.
///
/// It creates, renames and deletes categories and files the tags that are dropped on a tile. Every change is a request
/// to the host; what is shown follows the host's signals. GUI thread only.
class VLGroupTagWidget : public VLAllTagWidget
{
    Q_OBJECT

public:
    /// \a type: the page type, as for every page. Takes the host's action objects from the shared state and keeps them.
    VLGroupTagWidget(int type, QWidget* parent);
    ~VLGroupTagWidget() override;

    /// Builds the page, once. \a root is the fixed category, which is shown first; \a groups are the others in any
    /// order. Null pointers are allowed. O(n log n) in the number of categories.
    void initialise(const QSharedPointer<ITagGroupDataProvider>& root,
                    const QVector<QSharedPointer<ITagGroupDataProvider>>& groups);
    /// Shows these categories of the shared state and notifies the other lists through it. Unknown ones and those that
    /// are shown already are ignored.
    void addGroups(const QVector<qint64>& g_ids);
    /// Removes these categories and notifies the other lists through the shared state. When the selected one goes, the
    /// fixed category is selected.
    void removeGroups(const QVector<qint64>& g_ids);

    /// The id in the record of the category that is selected; taggroupid::none without one.
    [[nodiscard]] qint64 selectedGroupId() const;
    /// Selects a category as a click on its tile does, and scrolls to the tile. False for a category without a tile.
    bool selectGroup(qint64 g_id);

signals:
    /// Another category is selected.
    void selectedGroupChanged(qint64 g_id);
    /// The host is to show the files of these categories; always one.
    void signalCheckGroupFiles(QVector<qint64> g_ids);

public slots:
    /// Opens the category menu at the cursor.
    void slotPopMenu(qint64 g_id, const QString& g_name);
    /// Opens the dialog that creates a category.
    void slotAddGroup();
    /// \a value: vertical scroll position of the category tiles in logical pixels.
    void slotSetGroupScrollValue(int value);
    /// Opens the dialog that renames a category.
    void slotRenameGroup(qint64 g_id, const QString& g_name);
    /// Asks for confirmation, then deletes the category.
    void slotDelGroup(qint64 g_id);
    /// Puts a tag into a category.
    void slotAddGroupTag(qint64 g_id, qint64 t_id);

private:
    void makeMenu();
    void carryOut(const std::function<void()>& choice);
    void adjustFrame();
    QLayout* makeCategoryHalf();
    QLayout* makeTagHalf();
    QLayout* makeHeader();
    void placeRootTile();
    void makeGroupList();
    void connectRootTile();
    void connectGroupList();

    void showHeader(const QString& name, const QString& tagCount);
    void showGroup(const QString& name, const QString& tagCount,
                   const QSharedPointer<const ITagGroupDataProvider>& provider);
    void showRootGroup(const QSharedPointer<ITagGroupDataProvider>& root);
    void selectRootGroup();
    void createTag();
    void viewFiles();
    [[nodiscard]] CTagGroupItemWidget* selectedTile() const;
    void noteSelection();
    void openNameDialog(VLTagModifyWidget* dialog);
    void askForDeletion(qint64 g_id, const QString& name, int tagCount);
    void deleteGroup(qint64 g_id);

    CTagGroupItemWidget* m_rootTile = nullptr;
    TileScrollArea* m_groupScrollArea = nullptr;
    QWidget* m_groupScrollWidget = nullptr;
    QLabel* m_nameLabel = nullptr;
    QLabel* m_selectedCountLabel = nullptr;
    CTagGroupShowWidgt* m_groupList = nullptr;
    QMenu* m_menu = nullptr;
    int m_choicesUnderWay = 0;  ///< Entries of the menu that are being carried out.
    QAction* m_viewFilesAction = nullptr;
    QAction* m_renameAction = nullptr;
    QAction* m_deleteAction = nullptr;
    QPointer<CTagGroupItemWidget> m_notedTile;  ///< The selected one that was reported last.
    qint64 m_menuGroupId = 0;
    QString m_menuGroupName;
    QSharedPointer<ITagGroupAction> m_groupAction;
    QSharedPointer<ITagAction> m_tagAction;
};
