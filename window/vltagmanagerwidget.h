// SPDX-License-Identifier: MIT
#pragma once

#include <ivltagmanagerwidget.h>

#include <QSharedPointer>
#include <QVector>

class ITagManagerDataProvider;
class QHBoxLayout;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;
class VLAllTagWidget;
class VLCommonTagWidget;
class VLGroupTagWidget;

/// The tag manager window: three page buttons over a stack of the three pages, and three window buttons that only
/// report their click. It is framed, moved and closed by the host's window.
///
/// Reads its data from the shared state once, while it is built: a library set later is not followed. GUI thread only.
class VLTagManagerWidget : public IVLTagManagerWidget
{
    Q_OBJECT

public:
    explicit VLTagManagerWidget(QWidget* parent = nullptr);
    ~VLTagManagerWidget() override;

    void updateMaximizeButton(bool maximized) override;

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
    void applyStyleSheets();
    void followCategories();
    void showPage(QWidget* page, QPushButton* button);

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
    QSharedPointer<ITagManagerDataProvider> m_tagManagerProvider;
};
