// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"
#include "taglist/tagreader.h"
#include "taglist/tagrequests.h"
#include "taglist/tagrows.h"
#include "taglist/tagsections.h"

#include <QScrollArea>
#include <QSharedPointer>
#include <QVector>

#include <functional>

class ITagDataProvider;
class ITagGroupDataProvider;
class QVBoxLayout;
class TagContextMenu;
class VLTagListView;
class VLTagModifyWidget;

/// The body of every tag page: the tags of one category as a column of letter sections, with the tag context menu and
/// every tag command.
///
/// The view is as tall as its sections need and never scrolls itself; the page puts it into a scroll area.
/// Changes are requests to the host; what is shown changes only when the host's signals report it. GUI thread only.
class VLTagGroupListView : public QScrollArea
{
    Q_OBJECT

public:
    /// \a drag: chips can be dragged out of the sections.
    VLTagGroupListView(QWidget* parent, bool drag);
    ~VLTagGroupListView() override;

    /// Shows the tags of \a provider from now on and follows its signals; null shows nothing.
    /// Linear in the number of tags.
    void setDataProvider(const QSharedPointer<ITagGroupDataProvider>& provider);
    /// From now on the tags of a provider, when they are many, are read when the view is shown, not while it is hidden:
    /// for a list on a page that a person may never open.
    void setReadWhenShown();
    /// As setDataProvider(), but reads no tag until reload() is called with a filter, and leaves it to its owner to
    /// receive the signals of changed tags and to call refreshResult(): for the search results beside a list of all
    /// tags.
    void setSearchProvider(const QSharedPointer<ITagGroupDataProvider>& provider);
    /// Shows the tags whose names contain \a filter, compared without case, as one list sorted by closeness to it; with
    /// an empty filter every tag in its letter section.
    void reload(const QString& filter);
    /// Reads a tag again from its provider when it is among the search results.
    void refreshResult(qint64 tag_id);
    /// True, too, for tags that are still to be read.
    [[nodiscard]] bool showsTags() const;
    /// False for a library that takes no requests.
    [[nodiscard]] bool canChangeTags() const { return m_requests.areTaken(); }

    /// Reads now what waits until the view is shown.
    void readPending();
    /// The section or the list of results that shows a tag; null when none does.
    [[nodiscard]] VLTagListView* listOf(qint64 tag_id) const;
    /// The tags found, the closest first; \a limit at the most.
    [[nodiscard]] QVector<qint64> resultIds(int limit) const;
    /// Chips can be dragged out of the sections and the results, those to come included.
    void setChipDragEnabled(bool enabled);

signals:
    /// The host is to show the files that carry these tags.
    void signalsCheckoutFile(QVector<qint64> ids);
    /// Tags were created or added, or a tag's data changed: open create and rename dialogs close.
    void signalClosePopup();
    /// The last section is gone.
    void signalEmpty();
    /// \a count tags joined the category.
    void signalAddTag(int count);
    /// \a count tags left the category.
    void signalRemoveTag(int count);
    /// The data of a tag that is shown changed.
    void tagUpdated(qint64 tag_id);
    /// A result of the search was double-clicked.
    void resultActivated(qint64 tag_id);
    /// A dialog was opened in which a name is typed; it deletes itself when it is closed.
    void nameDialogOpened(VLTagModifyWidget* dialog);

public slots:
    /// Opens the dialog that creates a tag.
    void slotAddTag();
    void slotAddTagsCallBack(QVector<qint64> tag_ids);
    void slotRemoveTagsCallBack(QVector<qint64> tag_ids);
    void slotTagUpdateNoMatch(QVector<qint64> tag_ids);
    void slotPopMenu(qint64 tag_id, QString name);
    void slotCheckTagLinkFile(qint64 tag_id, QString name);
    void slotSetCommonTag(qint64 tag_id);
    void slotSetGroupTag(qint64 g_id, qint64 tag_id);
    void slotRenameTag(qint64 tag_id);
    void slotSetTagColor(qint64 tag_id, int color_index);
    void slotDelTag(qint64 tag_id);
    void slotUiRemoveTagListView();
    void slotAddGroupAction(qint64 g_id);
    void slotRemoveGroupAction(qint64 g_id);
    void slotUpdateGroupAction(qint64 g_id);
    void slotTagProviderUpdate();
    void slotDetachTag(qint64 tag_id);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What the list is there for.
    enum class Shown
    {
        Letters,
        Results
    };

    QVBoxLayout* setUpColumn();
    void makeMenu();
    void connectMenu();
    void replaceProvider(const QSharedPointer<ITagGroupDataProvider>& provider);
    void clear();
    void load(const QString& filter);
    void showAdded(const QVector<qint64>& tag_ids);
    /// Asks a category for some of its tags.
    using Ask = std::function<void(const ITagGroupDataProvider& group, TagReader::Providers* found)>;
    using Show = std::function<void(QVector<TagItem> items)>;
    void readTags(const Ask& ask, const QString& filter, const Show& show);
    void refresh(qint64 tag_id);
    void showTags(QVector<TagItem> items);
    void showResults(QVector<TagItem> items);
    [[nodiscard]] TagRows::Follow followByOwner();
    VLTagListView* makeResultList();
    VLTagListView* makeSection(const QString& letter, QVector<TagItem> items);
    void configureList(VLTagListView* list);
    void giveRoom(VLTagListView* list);
    void removeSection(VLTagListView* section);
    void openNameDialog(VLTagModifyWidget* dialog);
    void openMenu(qint64 tag_id, const QString& name, const QRect& chip);
    void viewMenuTagFiles();
    void setMenuTagColor(int colorIndex);

    QSharedPointer<ITagGroupDataProvider> m_provider;
    QVBoxLayout* m_layout;
    TagSections m_sections;
    VLTagListView* m_results = nullptr;  ///< Made for the first search, owned as a child.
    TagContextMenu* m_menu = nullptr;    ///< Made with the first provider: moving the list about costs less without it.
    qint64 m_menuTagId = 0;
    QString m_menuTagName;
    TagRequests m_requests;
    QString m_filter;
    Shown m_shown = Shown::Letters;
    bool m_readWhenShown = false;
    bool m_readPending = false;  ///< The provider's tags are still to be read.
    bool m_drag;
    TagReader m_reader;
};
