// SPDX-License-Identifier: MIT
#include "window/vltagmanagerwidget.h"

#include "pages/vlalltagwidget.h"
#include "pages/vlcommontagwidget.h"
#include "pages/vlgrouptagwidget.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "widgets/fixedsize.h"
#include "window/nameinput.h"
#include "window/page/tagpages.h"

#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <vlskinsetting.h>

#include <QDebug>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int buttonPixelSize = 13;
constexpr QSize pageButtonSize(96, 28);
constexpr QPoint firstPageButton(20, 30);
constexpr QPoint pageButtonStep(116, 0);
constexpr QSize windowButtonSize(14, 14);

QPushButton* makePageButton(const TagPage& page, QWidget* parent)
{
    QFont font;
    font.setPixelSize(buttonPixelSize);
    auto* button = new QPushButton(VLTagManagerWidget::tr(page.button), parent);
    new FixedSize(button, pageButtonSize);
    button->setFont(font);
    button->setFocusPolicy(Qt::ClickFocus);
    button->setCheckable(true);
    button->setObjectName(QStringLiteral("tag_manager_title_btn"));
    button->move(firstPageButton + static_cast<int>(page.id) * pageButtonStep);
    return button;
}

QPushButton* makeWindowButton(QWidget* parent)
{
    auto* button = new QPushButton(parent);
    new FixedSize(button, windowButtonSize);
    // As on a title bar: the first Space or Enter in a new window must not minimise it.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

/// The style sheet of a window button; \a padding are further declarations of its normal state.
QString windowButtonStyle(const QString& image, const QString& padding = {})
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    return QStringLiteral("QPushButton{border:0px;") + padding +
           skin->GetResourcePath(QStringLiteral("title_window_") + image + QStringLiteral("_normal.svg")) +
           QStringLiteral("}QPushButton:hover{") +
           skin->GetResourcePath(QStringLiteral("title_window_") + image + QStringLiteral("_hover.svg")) +
           QStringLiteral("}");
}

}  // namespace

VLTagManagerWidget::VLTagManagerWidget(QWidget* parent)
    : IVLTagManagerWidget(parent)
    , m_events(new VLTagManagerEvents(this))
    , m_nameInput(new NameInput(this))
{
    // Without it a subclass of QWidget leaves its background to the host's window.
    setAttribute(Qt::WA_StyledBackground);
    makePageButtons();
    QHBoxLayout* windowButtons = makeWindowButtons();
    updateMaximizeButton(false);
    makePages();
    arrange(windowButtons);
    connectPages();
    connectEvents();
    // Before the pages are filled: a new style lays everything out that is there already.
    applyStyleSheets();
    // The host may delete the parent from inside the reading.
    const QPointer<VLTagManagerWidget> self(this);
    fillPages();
    if (self)
        followCategories();
}

VLTagManagerWidget::~VLTagManagerWidget() = default;

void VLTagManagerWidget::makePageButtons()
{
    const auto& [allTags, categories, favorites] = tagPages();
    m_allTagsBtn = makePageButton(allTags, this);
    m_allTagsBtn->setFlat(true);
    m_allTagsBtn->setChecked(true);
    m_groupBtn = makePageButton(categories, this);
    m_commonBtn = makePageButton(favorites, this);
}

QHBoxLayout* VLTagManagerWidget::makeWindowButtons()
{
    m_minBtn = makeWindowButton(this);
    m_maxBtn = makeWindowButton(this);
    m_closeBtn = makeWindowButton(this);
    connect(m_minBtn, &QPushButton::clicked, this, &VLTagManagerWidget::signalSoftWareMin);
    connect(m_maxBtn, &QPushButton::clicked, this, &VLTagManagerWidget::signalSoftWareMax);
    connect(m_closeBtn, &QPushButton::clicked, this, &VLTagManagerWidget::signalSoftWareClose);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 17, 0);
    row->setSpacing(18);
    row->addStretch();
    row->addWidget(m_minBtn);
    row->addWidget(m_maxBtn);
    row->addWidget(m_closeBtn);
    return row;
}

void VLTagManagerWidget::makePages()
{
    m_allTagWidget = new VLAllTagWidget(static_cast<int>(TagManagerPage::AllTags), this);
    m_groupTagWidget = new VLGroupTagWidget(static_cast<int>(TagManagerPage::Categories), this);
    m_commonTagWidget = new VLCommonTagWidget(static_cast<int>(TagManagerPage::Favorites), this);
    m_stackedWidget = new QStackedWidget(this);
    m_stackedWidget->addWidget(m_allTagWidget);
    m_stackedWidget->addWidget(m_groupTagWidget);
    m_stackedWidget->addWidget(m_commonTagWidget);
}

void VLTagManagerWidget::fillPages()
{
    const QPointer<VLTagManagerWidget> self(this);
    VLTagManagerSingleton* shared = VLTagManagerSingleton::instance();
    // A copy: the host may replace the library from inside the reading.
    const QSharedPointer<ITagGroupDataProvider> allTags = shared->allTagsProvider();
    if (self)
        m_allTagWidget->initialise(allTags);
    QVector<QSharedPointer<ITagGroupDataProvider>> groups;
    shared->tagGroups(groups);
    const auto root = shared->rootGroupProvider();
    if (self)
        m_groupTagWidget->initialise(root, groups);
    const auto favorites = shared->favoriteTagsProvider();
    if (self)
        m_commonTagWidget->initialise(favorites);
}

void VLTagManagerWidget::arrange(QHBoxLayout* windowButtons)
{
    m_mainLayout = new QVBoxLayout(this);
    m_mainLayout->setContentsMargins(0, 18, 0, 0);
    m_mainLayout->setSpacing(0);
    m_mainLayout->addLayout(windowButtons);
    m_mainLayout->addSpacing(51);
    m_mainLayout->addWidget(m_stackedWidget);
    m_stackedWidget->setCurrentWidget(m_allTagWidget);
}

void VLTagManagerWidget::connectPages()
{
    connect(m_allTagsBtn, SIGNAL(clicked()), this, SLOT(slotSelectedAllLabel()));
    connect(m_groupBtn, SIGNAL(clicked()), this, SLOT(slotSelectedGroup()));
    connect(m_commonBtn, SIGNAL(clicked()), this, SLOT(slotSelectedCommon()));
    for (const VLTagBaseWidget* page :
         std::initializer_list<const VLTagBaseWidget*>{m_allTagWidget, m_commonTagWidget, m_groupTagWidget})
        connect(page, &VLTagBaseWidget::signalCheckoutFile, this, &VLTagManagerWidget::signalCheckoutTagFile);
    connect(m_groupTagWidget, &VLGroupTagWidget::signalCheckGroupFiles, this,
            &VLTagManagerWidget::signalCheckoutGroupFile);
}

void VLTagManagerWidget::applyStyleSheets()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    for (QWidget* widget : std::initializer_list<QWidget*>{this, m_allTagWidget, m_stackedWidget})
        skin->SetWidgetStyleSheetWithQssName(widget, QStringLiteral("tagmanager"));
}

void VLTagManagerWidget::followCategories()
{
    const QPointer<VLTagManagerWidget> self(this);
    const QSharedPointer<ITagManagerDataProvider> manager = VLTagManagerSingleton::instance()->tagManagerProvider();
    if (!self || !manager)
        return;
    m_tagManagerProvider = manager;
    connect(m_tagManagerProvider.data(), &ITagManagerDataProvider::signalAddTagGroups, this,
            &VLTagManagerWidget::slotAddTagGroups);
    connect(m_tagManagerProvider.data(), &ITagManagerDataProvider::signalRemoveTagGroups, this,
            &VLTagManagerWidget::slotRemoveTagGroups);
}

void VLTagManagerWidget::slotSelectedAllLabel()
{
    qInfo() << "VLTagManagerWidget::slotSelectedAllLabel select all tag";
    showPage(m_allTagWidget, m_allTagsBtn);
}

void VLTagManagerWidget::slotSelectedGroup()
{
    qInfo() << "VLTagManagerWidget::slotSelectedGroup select group";
    showPage(m_groupTagWidget, m_groupBtn);
}

void VLTagManagerWidget::slotSelectedCommon()
{
    qInfo() << "VLTagManagerWidget::slotSelectedCommon select common";
    showPage(m_commonTagWidget, m_commonBtn);
}

void VLTagManagerWidget::showPage(QWidget* page, QPushButton* button)
{
    for (QPushButton* each : {m_allTagsBtn, m_groupBtn, m_commonBtn})
        each->setChecked(each == button);
    // Last, as a receiver of the signal may delete the window.
    m_stackedWidget->setCurrentWidget(page);
}

void VLTagManagerWidget::slotAddTagGroups(QVector<qint64> g_ids)
{
    m_groupTagWidget->addGroups(g_ids);
}

void VLTagManagerWidget::slotRemoveTagGroups(QVector<qint64> g_ids)
{
    m_groupTagWidget->removeGroups(g_ids);
}

void VLTagManagerWidget::updateMaximizeButton(bool maximized)
{
    m_minBtn->setStyleSheet(
        windowButtonStyle(QStringLiteral("minisize"), QStringLiteral("padding-top:5px;padding-bottom:5px;")));
    m_maxBtn->setStyleSheet(windowButtonStyle(maximized ? QStringLiteral("restore") : QStringLiteral("maxsize")));
    m_closeBtn->setStyleSheet(windowButtonStyle(QStringLiteral("close")));
}
