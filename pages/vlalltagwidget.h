// SPDX-License-Identifier: MIT
#pragma once

#include "window/page/vltagbasewidget.h"

#include <QMap>
#include <QSharedPointer>

class ChipScrollArea;
class ITagGroupDataProvider;
class QMargins;
class QPushButton;
class QScrollArea;
class VLScrollBar;
class VLTagGroupListView;
class VLTagModifyWidget;
class VLTallBoxLayout;

/// The page of one category's tags in letter sections, with a tag counter, the button that creates a tag, and search.
///
/// A page derived from it may leave out any part: every operation and slot is safe without lists, scroll area, counter
/// or overlay bar. GUI thread only.
class VLAllTagWidget : public VLTagBaseWidget
{
    Q_OBJECT

public:
    VLAllTagWidget(int type, QWidget* parent);
    ~VLAllTagWidget() override;

    /// Builds the content and fills it; null shows an empty page. To be called once. Linear in the number of tags.
    void initialise(const QSharedPointer<ITagGroupDataProvider>& provider);

    /// Empties the search field, puts the kept content into the scroll area again and reloads the letters. The scroll
    /// position stays.
    void rebuild() override;

    /// Scrolls to a tag's chip and makes it the current one of its list. What waits to be read or laid out comes first.
    /// False when the page does not show the tag, or is hidden itself.
    bool revealTag(qint64 tag_id);
    /// The tags that the search shows, the closest first; \a limit at the most, none without a search.
    [[nodiscard]] QVector<qint64> searchResults(int limit);
    /// Chips can be dragged out of all lists of the page.
    void setChipDragEnabled(bool enabled);
    /// The scroll position, in logical pixels.
    [[nodiscard]] int scrollValue() const;

signals:
    /// The page shows the results of another text in its search field, or everything for an empty one.
    void searchTextChanged(QString text);
    /// A search result was double-clicked.
    void searchResultActivated(qint64 tag_id);
    /// A dialog was opened in which a name is typed.
    void nameDialogOpened(VLTagModifyWidget* dialog);

public slots:
    /// Sets the scroll position, in logical pixels.
    void slotSetOriScrollValue(int value);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Makes the page's scroll area with its content widget and content layout, and follows its events. The caller puts
    /// the area into a layout of the page. \a margins are the content layout's, in logical pixels.
    QScrollArea* makeScrollArea(const QString& areaName, const QString& contentName, const QMargins& margins);
    /// Lays the overlay bar, hidden at first, over the page's scroll area.
    void attachOverlayBar();
    /// Makes the create button at the right end of the title row; what a click does is left to the page.
    QPushButton* makeCreateButton();
    /// Makes an empty list whose requests to show files the page forwards; owned by the page.
    VLTagGroupListView* makeList(bool drag);
    /// Appends \a content to the scroll area's content; a rebuild brings all kept content back in the order of the
    /// keys.
    void keepContent(const QString& key, QWidget* content);
    /// Keeps up with whether the open library has tags, for the hint on an empty page.
    void followLibrary();

    ChipScrollArea* m_scrollArea = nullptr;
    QWidget* m_scrollWidget = nullptr;
    VLTallBoxLayout* m_contentLayout = nullptr;
    VLTagGroupListView* m_letterList = nullptr;
    VLTagGroupListView* m_searchList = nullptr;
    QLabel* m_countLabel = nullptr;
    QPushButton* m_createButton = nullptr;
    VLScrollBar* m_scrollBar = nullptr;

private slots:
    void slotSearchChanged(const QString& text);

private:
    void makeCounter(const QSharedPointer<ITagGroupDataProvider>& provider);
    void makeLetterList(const QSharedPointer<ITagGroupDataProvider>& provider);
    void makeSearchList(const QSharedPointer<ITagGroupDataProvider>& provider);
    void createTag();
    void addToCounter(int count);
    void settleContent();
    void clearSearch();
    [[nodiscard]] VLTagGroupListView* shownList() const;
    void followFieldNow();
    void countLibrary();
    [[nodiscard]] QString hintWhenEmpty() const;

    QMap<QString, QWidget*> m_keptContent;
    QSharedPointer<ITagGroupDataProvider> m_allTags;  ///< Null without a library.
    bool m_libraryHasTags = false;
};
