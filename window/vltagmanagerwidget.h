// SPDX-License-Identifier: MIT
#pragma once

#include <ivltagmanagercontrol.h>
#include <ivltagmanagerwidget.h>

#include <QSharedPointer>
#include <QVector>

class ITagManagerDataProvider;
class NameInput;
class QHBoxLayout;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;
class VLAllTagWidget;
class VLCommonTagWidget;
class VLGroupTagWidget;
class VLTagSearchLineEdit;

/// The tag manager window: three page buttons over a stack of the three pages, and three window buttons that only
/// report their click. It is framed, moved and closed by the host's window.
///
/// Reads its data from the shared state once, while it is built: a library set later is not followed. GUI thread only.
class VLTagManagerWidget : public IVLTagManagerWidget, public IVLTagManagerControl
{
    Q_OBJECT
    Q_INTERFACES(IVLTagManagerControl)

public:
    explicit VLTagManagerWidget(QWidget* parent = nullptr);
    ~VLTagManagerWidget() override;

    void updateMaximizeButton(bool maximized) override;

    [[nodiscard]] VLTagManagerEvents* events() const override;
    [[nodiscard]] TagManagerPage currentPage() const override;
    bool showPage(TagManagerPage page) override;
    [[nodiscard]] QString searchText() const override;
    bool setSearchText(const QString& text) override;
    bool focusSearch() override;
    [[nodiscard]] bool isSearchFocused() const override;
    [[nodiscard]] QVector<qint64> searchResults(int limit) override;
    [[nodiscard]] TagManagerItem itemAt(const QPoint& pos) const override;
    bool revealTag(qint64 tagId) override;
    [[nodiscard]] qint64 selectedCategory() const override;
    bool selectCategory(qint64 categoryId) override;
    [[nodiscard]] bool isMoveArea(const QPoint& pos) const override;
    [[nodiscard]] bool isNameBeingTyped() const override;
    void allowNameAgain() override;
    void setChipsDraggable(bool onEveryPage) override;
    [[nodiscard]] int scrollPosition() const override;
    void setScrollPosition(int pixels) override;

public slots:
    void slotSelectedAllLabel();
    void slotSelectedGroup();
    void slotSelectedCommon();
    void slotAddTagGroups(QVector<qint64> g_ids);
    void slotRemoveTagGroups(QVector<qint64> g_ids);

private:
    void makePageButtons();
    QHBoxLayout* makeWindowButtons();
    void makePages();
    void fillPages();
    void arrange(QHBoxLayout* windowButtons);
    void connectPages();
    void connectEvents();
    void applyStyleSheets();
    void followCategories();
    void showPage(QWidget* page, QPushButton* button);
    /// Null on a page that shows no column of tags.
    [[nodiscard]] VLAllTagWidget* shownPage() const;
    [[nodiscard]] VLTagSearchLineEdit* shownField() const;

    QPushButton* m_allTagsBtn = nullptr;
    QPushButton* m_groupBtn = nullptr;
    QPushButton* m_commonBtn = nullptr;
    VLAllTagWidget* m_allTagWidget = nullptr;
    VLGroupTagWidget* m_groupTagWidget = nullptr;
    VLCommonTagWidget* m_commonTagWidget = nullptr;
    QPushButton* m_minBtn = nullptr;
    QPushButton* m_maxBtn = nullptr;
    QPushButton* m_closeBtn = nullptr;
    QStackedWidget* m_stackedWidget = nullptr;
    QVBoxLayout* m_mainLayout = nullptr;
    VLTagManagerEvents* m_events;
    NameInput* m_nameInput;
    QSharedPointer<ITagManagerDataProvider> m_tagManagerProvider;
};
