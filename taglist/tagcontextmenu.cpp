// SPDX-License-Identifier: MIT
#include "taglist/tagcontextmenu.h"

#include "pages/addtocategory/vlgrouplistmenu.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/chipview.h"
#include "taglist/vltagcoloraction.h"
#include "taglist/vltaggrouplistview.h"
#include "widgets/menupopup.h"

#include <itaggroupdataprovider.h>
#include <vlskinsetting.h>

#include <QMenu>
#include <QPointer>
#include <QWidgetAction>

#include <algorithm>

namespace {

// Logical pixels.
constexpr int menuWidth = 204;
constexpr int colorRowHeight = 30;
constexpr QSize groupListSize(168, 230);
constexpr int groupRowHeight = 30;
constexpr int maximumGroupListHeight = 300;
constexpr int groupMenuFrame = 8;
constexpr int maximumGroupMenuHeight = 230;

QMenu* makeMenu(QWidget* owner, const QString& styleSheetName)
{
    auto* menu = new QMenu(owner);
    menu->setAttribute(Qt::WA_TranslucentBackground);
    menu->setWindowFlags(menu->windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    VLSkinSetting::GetInstance()->SetWidgetStyleSheetWithQssName(menu, styleSheetName);
    return menu;
}

}  // namespace

TagContextMenu::Categories TagContextMenu::readCategories()
{
    QVector<QSharedPointer<ITagGroupDataProvider>> groups;
    VLTagManagerSingleton::instance()->tagGroups(groups);
    Categories categories;
    for (const auto& group : qAsConst(groups)) {
        if (group)
            categories.append({group->groupId(), group->groupName()});
    }
    return categories;
}

TagContextMenu::TagContextMenu(QWidget* owner, const Categories& categories)
    : QObject(owner)
    , m_menu(makeMenu(owner, QStringLiteral("menu")))
{
    m_menu->setFixedWidth(menuWidth);
    connect(m_menu, &QMenu::aboutToHide, this, &ChipView::followPointerSoon);
    createActions();
    createGroupMenu(owner, categories);
    createColorRow();
}

TagContextMenu::~TagContextMenu()
{
    if (m_choicesUnderWay == 0 && !m_groupList->isPicking())
        return;
    // It owns the row of colours, which may be what is at work.
    m_colorRowAction->setParent(m_menu);
    deleteMenuSoon(m_menu);
    deleteMenuSoon(m_groupMenu);
}

void TagContextMenu::carryOut(const std::function<void()>& choice)
{
    const QPointer<TagContextMenu> self(this);
    ++m_choicesUnderWay;
    choice();
    if (self)
        --m_choicesUnderWay;
}

void TagContextMenu::createActions()
{
    const auto makeAction = [this](const QString& text, void (TagContextMenu::*chosen)()) {
        auto* action = new QAction(text, this);
        connect(action, &QAction::triggered, this, [this, chosen] { carryOut([&] { emit(this->*chosen)(); }); });
        return action;
    };
    m_viewFiles = makeAction(VLTagGroupListView::tr("View Related Files"), &TagContextMenu::viewFilesChosen);
    m_favorite = makeAction(VLTagGroupListView::tr("Set as Favorite Tag"), &TagContextMenu::favoriteChosen);
    m_rename = makeAction(VLTagGroupListView::tr("Rename Tag"), &TagContextMenu::renameChosen);
    m_delete = makeAction(VLTagGroupListView::tr("Delete Tag"), &TagContextMenu::deleteChosen);
    m_detach = makeAction(VLTagGroupListView::tr("Remove the Tag from the Category"), &TagContextMenu::detachChosen);
}

void TagContextMenu::createGroupMenu(QWidget* owner, const Categories& categories)
{
    m_groupMenu = makeMenu(owner, QStringLiteral("tagmanager"));
    m_groupMenu->setTitle(VLTagGroupListView::tr("Add to Category"));
    m_groupMenu->setObjectName(QStringLiteral("tag_manager_menu"));
    m_groupMenu->setFixedWidth(groupListSize.width());
    // Without a parent: the menu that shows it takes it in. So it is with the row of colours.
    m_groupList = new VLGroupListMenu(nullptr);
    m_groupList->setFixedSize(groupListSize);
    for (const auto& category : categories)
        m_groupList->slotAddItem(category.first, category.second);
    auto* listAction = new QWidgetAction(m_groupMenu);
    listAction->setDefaultWidget(m_groupList);
    m_groupMenu->addAction(listAction);
    connect(m_groupList, &VLGroupListMenu::signClicked, this, [this](qint64 g_id) {
        close();
        carryOut([&] { emit groupChosen(g_id); });
    });
}

void TagContextMenu::createColorRow()
{
    m_colorRow = new VLTagColorAction(nullptr);
    m_colorRow->setFixedSize(menuWidth, colorRowHeight);
    m_colorRowAction = new QWidgetAction(this);
    m_colorRowAction->setDefaultWidget(m_colorRow);
    connect(m_colorRow, &VLTagColorAction::signalColorClicked, this,
            [this](int index) { carryOut([&] { emit colorChosen(index); }); });
}

void TagContextMenu::arrange(bool inCategory)
{
    if (m_inCategory == inCategory)
        return;
    m_inCategory = inCategory;
    m_menu->clear();
    m_menu->addAction(m_viewFiles);
    m_menu->addSeparator();
    m_menu->addAction(m_favorite);
    m_menu->addMenu(m_groupMenu);
    m_menu->addSeparator();
    m_menu->addAction(m_rename);
    m_menu->addAction(m_colorRowAction);
    m_menu->addSeparator();
    if (inCategory)
        m_menu->addAction(m_detach);
    m_menu->addAction(m_delete);
}

void TagContextMenu::open(bool isFavorite, int colorIndex, const QRect& item)
{
    m_groupMenu->menuAction()->setEnabled(m_groupList->count() > 0);
    m_favorite->setText(isFavorite ? VLTagGroupListView::tr("Cancel set as Favorite Tag")
                                   : VLTagGroupListView::tr("Set as Favorite Tag"));
    m_colorRow->setSelected(colorIndex);
    fitGroupMenu();
    if (item.isNull())
        popUpMenuAtCursor(m_menu);
    else
        popUpMenuBeside(m_menu, item);
}

void TagContextMenu::close()
{
    m_groupMenu->hide();
    m_menu->hide();
}

/// The list shrinks by itself when rows go; here it gets the room again that its rows need.
void TagContextMenu::fitGroupMenu()
{
    const int needed = std::min(m_groupList->count() * groupRowHeight, maximumGroupListHeight);
    if (m_groupList->height() < std::min(needed, groupListSize.height()))
        m_groupList->setFixedHeight(needed);
    const int menuHeight = std::min(m_groupList->height() + groupMenuFrame, maximumGroupMenuHeight);
    m_groupMenu->setFixedHeight(menuHeight);
    m_groupList->setHiddenBottom(m_groupList->height() + groupMenuFrame - menuHeight);
}
