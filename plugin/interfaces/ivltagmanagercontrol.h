// SPDX-License-Identifier: MIT
#pragma once

#include "vltagmanagerevents.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QtPlugin>
#include <QVector>

/// Format of a dragged chip's data: the id of one tag as a qint64 that a QDataStream of default settings wrote.
inline constexpr char tagManagerTagFormat[] = "TagManager_Group_List_View";

/// A page and the word for it that a program may use on its command line or in its settings: it never changes and is
/// never translated.
struct TagManagerPageName
{
    TagManagerPage page;
    const char* name;
};

/// Every page, in the order of the window's buttons.
inline constexpr TagManagerPageName tagManagerPageNames[] = {{TagManagerPage::AllTags, "all"},
                                                             {TagManagerPage::Categories, "categories"},
                                                             {TagManagerPage::Favorites, "favorites"}};

/// What lies at a point of the window.
struct TagManagerItem
{
    /// Kinds may be added: take one that you do not know for Nothing.
    enum Kind : int
    {
        Nothing = 0,
        Tag = 1,       ///< A chip; id is the tag's.
        Category = 2,  ///< A tile of the Tag Categories page; id is the category's.
    };

    Kind kind = Nothing;
    qint64 id = 0;
    /// The whole chip or tile in logical pixels of the window, with what is scrolled out of sight.
    QRect rect;
};

/// What a host may know of a tag manager window and do with it, beyond IVLTagManagerWidget.
///
/// Found by qobject_cast<IVLTagManagerControl*>() on the window that IVLTagManagerPlugin::createTagManagerWidget()
/// returned; an older plug-in has none, and the cast is null. It lives as long as the window. GUI thread only.
///
/// The number behind each operation is its place in the virtual table, which is part of the binary contract. Operations
/// that ask the host's providers say so: the window may be gone when they return, if the providers can delete it.
class IVLTagManagerControl
{
public:
    /// [0] What the window notifies its host of; owned by the window, the same object at every call.
    virtual VLTagManagerEvents* events() const = 0;

    /// [1] The page that is shown.
    virtual TagManagerPage currentPage() const = 0;
    /// [2] Shows a page, as a click on its button does. False, and nothing, for an unknown one.
    virtual bool showPage(TagManagerPage page) = 0;

    /// [3] The text in the search field of the current page; empty on a page without one.
    virtual QString searchText() const = 0;
    /// [4] Puts \a text into the search field of the current page, as typing does: the page follows in the next turn of
    /// the event loop. False, and nothing, on a page without a search field.
    virtual bool setSearchText(const QString& text) = 0;
    /// [5] Gives the search field of the current page the keyboard and selects its text. False, and nothing, on a page
    /// without one.
    virtual bool focusSearch() = 0;
    /// [6] Whether that field has the keyboard.
    virtual bool isSearchFocused() const = 0;
    /// [7] The tags that the current page shows for its search text, the closest first, \a limit of them at the most;
    /// none without a search text. A search that waits for the event loop is carried out first, which asks the
    /// providers.
    virtual QVector<qint64> searchResults(int limit) = 0;

    /// [8] What the current page shows at \a pos, in logical pixels of the window. Asks the provider of a category for
    /// its record.
    virtual TagManagerItem itemAt(const QPoint& pos) const = 0;
    /// [9] Scrolls the current page to the chip of a tag and makes it the current chip of its list. False, and nothing,
    /// when the page does not show the tag, or the window is hidden. Reads what the page has put off reading, which
    /// asks the providers.
    virtual bool revealTag(qint64 tagId) = 0;

    /// [10] The category whose tags the Tag Categories page shows, also while another page is current;
    /// taggroupid::none without a library. Asks the category's provider for its record.
    virtual qint64 selectedCategory() const = 0;
    /// [11] Selects a category on the Tag Categories page, as a click on its tile does, and scrolls to the tile. False,
    /// and nothing, for a category without a tile. Asks the providers.
    virtual bool selectCategory(qint64 categoryId) = 0;

    /// [12] Whether a press at \a pos, in logical pixels of the window, is meant for the host's window, to move it: in
    /// the strip above the pages, beside the buttons.
    virtual bool isMoveArea(const QPoint& pos) const = 0;

    /// [13] Whether a dialog is open in which a person types the name of a tag or category.
    virtual bool isNameBeingTyped() const = 0;
    /// [14] Lets the person send the name in the open dialog again. The dialog disables its button when it sends a name
    /// and is closed when the request succeeds; a host calls this when it refused the request.
    virtual void allowNameAgain() = 0;

    /// [15] Whether chips can be dragged out of every page; at first, only out of the Tag Categories page.
    virtual void setChipsDraggable(bool onEveryPage) = 0;

    /// [16] By how many logical pixels the tags of the current page are scrolled.
    virtual int scrollPosition() const = 0;
    /// [17] Scrolls them, as far as the page reaches by now.
    virtual void setScrollPosition(int pixels) = 0;

    virtual void reserved18() {}
    virtual void reserved19() {}
    virtual void reserved20() {}
    virtual void reserved21() {}
    virtual void reserved22() {}
    virtual void reserved23() {}
    virtual void reserved24() {}
    virtual void reserved25() {}
    virtual void reserved26() {}
    virtual void reserved27() {}
    virtual void reserved28() {}
    virtual void reserved29() {}
    virtual void reserved30() {}
    virtual void reserved31() {}

protected:
    ~IVLTagManagerControl() = default;
};

Q_DECLARE_INTERFACE(IVLTagManagerControl, "Vellum.Plugin.IVLTagManagerControl/1.0")
