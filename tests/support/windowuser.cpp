// SPDX-License-Identifier: MIT
#include "tests/support/windowuser.h"

#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/addtocategory/vlgrouplistmenu.h"
#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "plugin/state/tagitem.h"
#include "taglist/vltagcolorwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/support/gestures.h"
#include "tests/support/memoryhost.h"
#include "window/page/vltagsearchlineedit.h"
#include "window/vltagmanagerwidget.h"

#include <QApplication>
#include <QEventLoop>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>
#include <QWidgetAction>

#include <algorithm>

namespace {

QStackedWidget* stackOf(const QWidget* window)
{
    return window ? window->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

/// As it is shown: on two lines at most, with what does not fit them left out.
QString tileName(const CTagGroupItemWidget* tile)
{
    const auto* name = tile->findChild<QLabel*>(QStringLiteral("tag_group_name_label"));
    return name ? name->text().remove(QLatin1Char('\n')) : QString();
}

QString tileText(const CTagGroupItemWidget* tile)
{
    const auto* count = tile->findChild<QLabel*>(QStringLiteral("tag_group_count_label"));
    const QString text = count ? tileName(tile) + QLatin1Char(' ') + count->text() : QString();
    return tile->isSelected() ? QLatin1Char('[') + text + QLatin1Char(']') : text;
}

/// The tile that stands above the list of the others.
CTagGroupItemWidget* rootTile(const CTagGroupShowWidgt* list)
{
    for (auto* tile : list->parentWidget()->findChildren<CTagGroupItemWidget*>(QString(), Qt::FindDirectChildrenOnly))
        return tile;
    return nullptr;
}

}  // namespace

void settle()
{
    QEventLoop loop;
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

WindowUser::WindowUser()
    : m_window(new VLTagManagerWidget)
{
    m_window->resize(1000, 700);
    m_window->show();
}

WindowUser::~WindowUser()
{
    closeWindow();
}

void WindowUser::closeWindow()
{
    delete m_window;
}

QWidget* WindowUser::page(int page) const
{
    return m_window ? stackOf(m_window)->widget(page) : nullptr;
}

int WindowUser::currentPage() const
{
    return m_window ? stackOf(m_window)->currentIndex() : -1;
}

void WindowUser::selectPage(int page)
{
    if (m_window)
        QTest::mouseClick(m_window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn")).at(page),
                          Qt::LeftButton);
}

void WindowUser::clickWindowButton(int button)
{
    if (m_window)
        QTest::mouseClick(m_window->findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly).at(3 + button),
                          Qt::LeftButton);
}

void WindowUser::search(const QString& text)
{
    const QPointer<QLineEdit> field = m_window ? page(currentPage())->findChild<VLTagSearchLineEdit*>() : nullptr;
    if (!field || field->text() == text)
        return;
    field->selectAll();
    field->insert(text);
}

QString WindowUser::searchText(int page) const
{
    return m_window ? this->page(page)->findChild<VLTagSearchLineEdit*>()->text() : QString();
}

VLTagGroupListView* WindowUser::list() const
{
    const QWidget* shown = page(currentPage());
    if (!shown)
        return nullptr;
    for (auto* list : shown->findChildren<VLTagGroupListView*>()) {
        if (!list->isHidden())
            return list;
    }
    return nullptr;
}

QScrollBar* WindowUser::scrollBar() const
{
    for (QWidget* around = list(); around; around = around->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(around);
        if (area && area != list())
            return area->verticalScrollBar();
    }
    return nullptr;
}

QStringList WindowUser::chips() const
{
    return list() ? gestures::shownChips(list(), gestures::describeChip) : QStringList();
}

QString WindowUser::counter() const
{
    return m_window ? page(AllTags)->findChild<QLabel*>(QStringLiteral("all_tag_count_label"))->text() : QString();
}

QMenu* WindowUser::openTagMenu(const QString& tagName)
{
    const QPointer<VLTagGroupListView> shown = list();
    if (!shown || !gestures::rightClickChip(shown, tagName) || !shown)
        return nullptr;
    for (auto* menu : shown->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (menu->isVisible())
            return menu;
    }
    return nullptr;
}

QMenu* WindowUser::openGroupMenu(const QString& groupName)
{
    CTagGroupItemWidget* shown = tile(groupName);
    if (!shown)
        return nullptr;
    QTest::mouseClick(shown, Qt::RightButton);
    auto* menu = m_window ? page(Categories)->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    return menu && menu->isVisible() ? menu : nullptr;
}

bool WindowUser::choose(QMenu* menu, const QString& entry)
{
    if (!menu)
        return false;
    const auto actions = menu->actions();
    const auto found = std::find_if(actions.begin(), actions.end(), [&](auto* each) { return each->text() == entry; });
    if (found == actions.end() || !(*found)->isEnabled())
        return false;
    // On a small screen the entry may be out of sight; a person would scroll to it.
    menu->setActiveAction(*found);
    QTest::keyClick(menu, Qt::Key_Return);
    return true;
}

QString WindowUser::entries(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions()) {
        const QString text = action->isSeparator()                        ? QStringLiteral("-")
                             : qobject_cast<const QWidgetAction*>(action) ? QStringLiteral("~")
                             : action->isEnabled()                        ? action->text()
                                                                          : QString('(' + action->text() + ')');
        texts.append(text);
    }
    return texts.join(QLatin1Char('|'));
}

QStringList WindowUser::groupChoices() const
{
    QStringList names;
    const auto* choices = list() ? list()->findChild<VLGroupListMenu*>() : nullptr;
    for (int row = 0; choices && row < choices->count(); ++row)
        names.append(choices->item(row)->text());
    return names;
}

bool WindowUser::chooseGroup(const QString& groupName)
{
    auto* choices = list() ? list()->findChild<VLGroupListMenu*>() : nullptr;
    const auto found = choices ? choices->findItems(groupName, Qt::MatchFixedString | Qt::MatchCaseSensitive)
                               : QList<QListWidgetItem*>();
    if (found.isEmpty())
        return false;
    if (auto* menu = list()->findChild<QMenu*>(QStringLiteral("tag_manager_menu")))
        menu->popup(QPoint());
    choices->scrollToItem(found.first());
    QTest::mouseClick(choices->viewport(), Qt::LeftButton, {}, choices->visualItemRect(found.first()).center());
    return true;
}

bool WindowUser::chooseColor(int index)
{
    const auto swatches = list() ? list()->findChildren<VLTagColorWidget*>() : QList<VLTagColorWidget*>();
    if (index >= swatches.size())
        return false;
    QTest::mouseClick(swatches.at(index), Qt::LeftButton);
    return true;
}

VLTagModifyWidget* WindowUser::dialog() const
{
    return m_window ? m_window->findChild<VLTagModifyWidget*>() : nullptr;
}

void WindowUser::enterName(const QString& name)
{
    if (!dialog())
        return;
    const QPointer<QLineEdit> field = dialog()->findChild<QLineEdit*>();
    field->selectAll();
    field->insert(name);
    if (field)
        QTest::keyClick(field, Qt::Key_Return);
}

void WindowUser::closeDialog()
{
    if (dialog())
        dialog()->close();
}

VLMessageBox* WindowUser::box() const
{
    // It belongs to the window that the tag manager is part of.
    return m_window ? m_window->window()->findChild<VLMessageBox*>() : nullptr;
}

void WindowUser::answerBox(bool yes)
{
    if (box())
        QTest::mouseClick(
            box()->findChild<QPushButton*>(yes ? QStringLiteral("confirm_btn") : QStringLiteral("cancel_btn")),
            Qt::LeftButton);
}

void WindowUser::clickCreateTag()
{
    auto* button = m_window ? page(currentPage())->findChild<QPushButton*>(QStringLiteral("create_tag_btn")) : nullptr;
    if (button)
        QTest::mouseClick(button, Qt::LeftButton);
}

CTagGroupItemWidget* WindowUser::tile(const QString& groupName) const
{
    const auto* list = m_window ? m_window->findChild<CTagGroupShowWidgt*>() : nullptr;
    if (!list)
        return nullptr;
    if (groupName.isEmpty())
        return rootTile(list);
    for (int row = 0; row < list->count() - 1; ++row) {
        auto* tile = static_cast<CTagGroupItemWidget*>(list->itemWidget(list->item(row)));
        if (tile && tileName(tile) == groupName)
            return tile;
    }
    return nullptr;
}

CTagGroupItemWidget* WindowUser::addNewTile() const
{
    const auto* list = m_window ? m_window->findChild<CTagGroupShowWidgt*>() : nullptr;
    return list ? static_cast<CTagGroupItemWidget*>(list->itemWidget(list->item(list->count() - 1))) : nullptr;
}

void WindowUser::clickTile(CTagGroupItemWidget* tile)
{
    if (tile)
        QTest::mouseClick(tile, Qt::LeftButton);
}

QStringList WindowUser::tiles() const
{
    const auto* list = m_window ? m_window->findChild<CTagGroupShowWidgt*>() : nullptr;
    if (!list)
        return {};
    QStringList texts{tileText(rootTile(list))};
    for (int row = 0; row < list->count() - 1; ++row)
        texts.append(tileText(static_cast<CTagGroupItemWidget*>(list->itemWidget(list->item(row)))));
    return texts;
}

QString WindowUser::header() const
{
    return m_window ? m_window->findChild<QLabel*>(QStringLiteral("tag_manager_group_name"))->text() +
                          m_window->findChild<QLabel*>(QStringLiteral("tag_manager_group_count"))->text()
                    : QString();
}

void WindowUser::useForAMinute(MemoryHost& host)
{
    search("a");
    settle();
    search({});
    settle();
    clickCreateTag();
    enterName("fresh");
    settle();
    choose(openTagMenu("fresh"), "Set as Favorite Tag");
    choose(openTagMenu("fresh"), "Rename Tag");
    enterName("newer");
    settle();
    if (openTagMenu("newer"))
        chooseColor(4);
    settle();
    selectPage(Categories);
    clickTile(addNewTile());
    enterName("Temp");
    settle();
    clickTile(tile("Temp"));
    host.addTagsToGroups({host.manager()->groups.lastKey()}, {1, 2, 3});
    choose(openGroupMenu("Temp"), "Delete Category");
    answerBox(true);
    settle();
    selectPage(Favorites);
    settle();
    choose(openTagMenu("newer"), "Delete Tag");
    answerBox(true);
    settle();
    host.removeTags(host.addTags(QStringList{"imported 1", "imported 2", "zebra"}));
}
