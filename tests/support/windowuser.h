// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/patience.h"

#include <ivltagmanagerwidget.h>

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVector>

class CTagGroupItemWidget;
class MemoryHost;
class QLineEdit;
class QMenu;
class QScrollBar;
class VLMessageBox;
class VLTagGroupListView;
class VLTagModifyWidget;
class QWidget;

/// Carries out everything that waits in the event loop now, and what is to be deleted later; then returns.
void settle();

/// What a person does in a tag manager window, and sees of it. The window may go at any moment; every operation is
/// then without effect.
class WindowUser
{
public:
    enum Page
    {
        AllTags,
        Categories,
        Favorites
    };

    /// Opens a window of 1000 by 700 logical pixels.
    WindowUser();
    ~WindowUser();
    Q_DISABLE_COPY(WindowUser)

    [[nodiscard]] IVLTagManagerWidget* window() const { return m_window; }
    /// Deletes the window, as a host may do at any moment.
    void closeWindow();
    [[nodiscard]] QWidget* page(int page) const;
    [[nodiscard]] int currentPage() const;
    void selectPage(int page);
    /// Clicks the minimise (0), maximise (1) or close (2) button.
    void clickWindowButton(int button);

    /// Puts the text into the current page's search field.
    void search(const QString& text);
    [[nodiscard]] QString searchText(int page) const;

    /// The list of letters or of results that the current page shows.
    [[nodiscard]] VLTagGroupListView* list() const;
    /// What that list is scrolled by.
    [[nodiscard]] QScrollBar* scrollBar() const;
    /// One line for each section of the current page, such as "A: ant 3, apple 0": names with file counts.
    [[nodiscard]] QStringList chips() const;
    [[nodiscard]] QString counter() const;

    /// Right-clicks the chip on the current page; the open menu, or null without such a chip.
    QMenu* openTagMenu(const QString& tagName);
    /// Right-clicks a category's tile; the open menu, or null without such a tile.
    QMenu* openGroupMenu(const QString& groupName);
    /// Goes to an enabled entry of an open menu and presses Enter.
    static bool choose(QMenu* menu, const QString& entry);
    /// The texts of a menu with "-" for separators and "~" for widgets; entries that are greyed in parentheses.
    static QString entries(const QMenu* menu);
    /// The rows of "Add to Category" on the current page.
    [[nodiscard]] QStringList groupChoices() const;
    /// Clicks such a row of the open tag menu.
    bool chooseGroup(const QString& groupName);
    /// Clicks a swatch in the open tag menu.
    bool chooseColor(int index);

    [[nodiscard]] VLTagModifyWidget* dialog() const;
    /// Types a name into the open create or rename dialog and confirms it.
    void enterName(const QString& name);
    void closeDialog();
    [[nodiscard]] VLMessageBox* box() const;
    void answerBox(bool yes);

    void clickCreateTag();
    /// By the name as it is shown, without its line break; null for an unknown one. The empty name is the fixed
    /// category.
    [[nodiscard]] CTagGroupItemWidget* tile(const QString& groupName) const;
    [[nodiscard]] CTagGroupItemWidget* addNewTile() const;
    void clickTile(CTagGroupItemWidget* tile);
    /// The fixed tile, then the others in their places, such as "Art 2"; the selected one in brackets.
    [[nodiscard]] QStringList tiles() const;
    [[nodiscard]] QString header() const;

    /// Uses every page. Needs the tags 1 to 3 and leaves the library as it was; sends seven requests that are followed.
    void useForAMinute(MemoryHost& host);

private:
    QPointer<IVLTagManagerWidget> m_window;
};
