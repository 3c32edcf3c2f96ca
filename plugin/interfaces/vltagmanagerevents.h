// SPDX-License-Identifier: MIT
#pragma once

#include "vlhostglobal.h"

#include <QMetaType>
#include <QObject>
#include <QString>

/// The pages of the tag manager window. The values never change.
enum class TagManagerPage : int
{
    AllTags = 0,
    Categories = 1,
    Favorites = 2,
};

Q_DECLARE_METATYPE(TagManagerPage)

/// What a tag manager window notifies its host of, beyond the signals of IVLTagManagerWidget.
///
/// Emitted on the GUI thread. A handler may do anything, deleting the window included. Signals may be added at the end.
class VLHOST_EXPORT VLTagManagerEvents : public QObject
{
    Q_OBJECT

public:
    explicit VLTagManagerEvents(QObject* parent = nullptr);
    ~VLTagManagerEvents() override;

Q_SIGNALS:
    /// Another page is shown.
    void currentPageChanged(TagManagerPage page);
    /// A page shows the results of another text in its search field, or every tag for an empty text.
    void searchTextChanged(TagManagerPage page, const QString& text);
    /// Enter was pressed in the search field of a page, which shows the results of its text.
    void searchSubmitted(TagManagerPage page);
    /// A result of a search was double-clicked. Double clicks on other chips are signalCheckoutTagFile() of the window.
    void searchResultActivated(qint64 tagId);
    /// The Tag Categories page shows the tags of another category; taggroupid::none for none.
    void selectedCategoryChanged(qint64 categoryId);
    /// A dialog was opened in which a person types the name of a tag or category. Every signal about a tag that is
    /// shown, and every tag that is added, closes it.
    void nameInputStarted();
    /// The last such dialog is gone, whether a name was sent or not.
    void nameInputFinished();
};
