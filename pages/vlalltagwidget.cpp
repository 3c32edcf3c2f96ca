// SPDX-License-Identifier: MIT
#include "pages/vlalltagwidget.h"

#include "dialogs/vltagmodifywidget.h"
#include "pages/emptyhint.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/chipscrollarea.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "widgets/fixedsize.h"
#include "widgets/vlscrollbar.h"
#include "widgets/vlsvgwidget.h"
#include "widgets/vltallboxlayout.h"
#include "window/page/tagpages.h"
#include "window/page/vltagsearchlineedit.h"

#include <itaggroupdataprovider.h>
#include <vleventtrack.h>
#include <vlskinsetting.h>

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int counterPixelSize = 14;
constexpr int buttonPixelSize = 13;
constexpr int chipsLeft = 16;  // of the chips within their list, where the hint stands when there are none

QString counterText(int count)
{
    return QStringLiteral("(%1)").arg(count);
}

}  // namespace

VLAllTagWidget::VLAllTagWidget(int type, QWidget* parent)
    : VLTagBaseWidget(type, parent)
{
    connect(this, &VLAllTagWidget::signSearchChanged, this, &VLAllTagWidget::slotSearchChanged, Qt::QueuedConnection);
}

VLAllTagWidget::~VLAllTagWidget() = default;

void VLAllTagWidget::initialise(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    m_mainLayout->setContentsMargins(46, 0, 0, 0);
    const QPointer<VLAllTagWidget> self(this);
    followLibrary();
    if (self)
        makeCounter(provider);
    if (!self)
        return;
    connect(makeCreateButton(), &QPushButton::clicked, this, &VLAllTagWidget::createTag);
    m_mainLayout->addWidget(makeScrollArea(QStringLiteral("all_tag_scroll"), QStringLiteral("all_tag_scroll_widget"),
                                           QMargins(3, 16, 0, 0)));
    attachOverlayBar();
    makeLetterList(provider);
    if (self)
        makeSearchList(provider);
}

void VLAllTagWidget::makeCounter(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    QFont font;
    font.setPixelSize(counterPixelSize);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("all_tag_count_label"));
    m_countLabel->setFont(font);
    m_titleLayout->addSpacing(4);
    m_titleLayout->addWidget(m_countLabel);
    const QPointer<QLabel> label(m_countLabel);
    const QString text = provider ? counterText(provider->tagCount(1)) : QString();
    if (label)
        label->setText(text);
}

QPushButton* VLAllTagWidget::makeCreateButton()
{
    QFont font;
    font.setPixelSize(buttonPixelSize);
    m_createButton = new QPushButton(tr("Create Tags"), this);
    m_createButton->setObjectName(QStringLiteral("create_tag_btn"));
    new FixedSize(m_createButton, QSize(96, 28));
    m_createButton->setFont(font);
    m_titleLayout->addStretch();
    m_titleLayout->addWidget(m_createButton);
    m_titleLayout->setContentsMargins(21, 0, 30, 0);
    return m_createButton;
}

QScrollArea* VLAllTagWidget::makeScrollArea(const QString& areaName, const QString& contentName,
                                            const QMargins& margins)
{
    m_scrollArea = new ChipScrollArea(this);
    m_scrollArea->setObjectName(areaName);
    // It shows no focus, so it is no stop for the Tab key; after a click the arrow keys scroll it.
    m_scrollArea->setFocusPolicy(Qt::ClickFocus);
    m_scrollWidget = new QWidget;
    m_scrollWidget->setObjectName(contentName);
    // With a skin that gives the content an opaque colour, scrolling moves pixels and paints only what comes into view.
    m_scrollWidget->setAutoFillBackground(true);
    // Growing below what is in view paints nothing anew.
    m_scrollWidget->setAttribute(Qt::WA_StaticContents);
    m_contentLayout = new VLTallBoxLayout(m_scrollWidget);
    m_contentLayout->setContentsMargins(margins);
    m_contentLayout->setSpacing(0);
    m_scrollArea->setWidget(m_scrollWidget);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->installEventFilter(this);
    new EmptyHint(m_scrollWidget, QPoint(margins.left() + chipsLeft, margins.top()),
                  [this] { return hintWhenEmpty(); });
    return m_scrollArea;
}

void VLAllTagWidget::attachOverlayBar()
{
    m_scrollBar = new VLScrollBar(m_scrollArea);
    m_scrollBar->setUp(m_scrollArea, 0, 0);
}

VLTagGroupListView* VLAllTagWidget::makeList(bool drag)
{
    auto* list = new VLTagGroupListView(this, drag);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(list, &VLTagGroupListView::signalsCheckoutFile, this, &VLAllTagWidget::signalCheckoutFile);
    connect(list, &VLTagGroupListView::resultActivated, this, &VLAllTagWidget::searchResultActivated);
    connect(list, &VLTagGroupListView::nameDialogOpened, this, &VLAllTagWidget::nameDialogOpened);
    return list;
}

void VLAllTagWidget::makeLetterList(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    m_letterList = makeList(false);
    connect(m_letterList, &VLTagGroupListView::signalAddTag, this, &VLAllTagWidget::addToCounter);
    connect(m_letterList, &VLTagGroupListView::signalRemoveTag, this, [this](int count) { addToCounter(-count); });
    keepContent(QStringLiteral("1 letters"), m_letterList);
    m_letterList->setDataProvider(provider);
}

void VLAllTagWidget::makeSearchList(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    m_searchList = makeList(false);
    connect(m_searchList, &VLTagGroupListView::signalEmpty, this, &VLAllTagWidget::clearSearch);
    m_searchList->hide();
    keepContent(QStringLiteral("2 search results"), m_searchList);
    connect(m_letterList, &VLTagGroupListView::tagUpdated, m_searchList, &VLTagGroupListView::refreshResult);
    m_searchList->setSearchProvider(provider);
}

void VLAllTagWidget::keepContent(const QString& key, QWidget* content)
{
    m_keptContent.insert(key, content);
    m_contentLayout->addWidget(content);
}

void VLAllTagWidget::createTag()
{
    const QPointer<VLAllTagWidget> self(this);
    VlEventTrack::GetInstance()->ClickTagManagerAddBtn(0);
    if (self)
        m_letterList->slotAddTag();
    if (self && !m_searchEdit->text().isEmpty())
        clearSearch();
}

void VLAllTagWidget::clearSearch()
{
    m_searchEdit->setText(QString());
}

void VLAllTagWidget::addToCounter(int count)
{
    QString shown = m_countLabel->text();
    const int sum = shown.remove(QLatin1Char('(')).remove(QLatin1Char(')')).toInt() + count;
    if (sum >= 0 || count >= 0)
        m_countLabel->setText(counterText(sum));
}

void VLAllTagWidget::followLibrary()
{
    const QPointer<VLAllTagWidget> self(this);
    const QSharedPointer<ITagGroupDataProvider> allTags = VLTagManagerSingleton::instance()->allTagsProvider();
    if (!self || !allTags)
        return;
    m_allTags = allTags;
    connect(allTags.data(), &ITagGroupDataProvider::signalAddTags, this, &VLAllTagWidget::countLibrary);
    connect(allTags.data(), &ITagGroupDataProvider::signalRemoveTags, this, &VLAllTagWidget::countLibrary);
    countLibrary();
}

void VLAllTagWidget::countLibrary()
{
    const QPointer<VLAllTagWidget> self(this);
    const auto allTags = m_allTags;
    const bool hasTags = allTags->tagCount(1) > 0;
    if (!self || m_libraryHasTags == hasTags)
        return;
    m_libraryHasTags = hasTags;
    if (m_scrollWidget)
        m_scrollWidget->update();
}

/// Asked while painting, so from what is known here; it promises nothing that the host does not offer.
QString VLAllTagWidget::hintWhenEmpty() const
{
    const bool searches = !m_searchEdit->text().isEmpty();
    const VLTagGroupListView* list = searches ? m_searchList : m_letterList;
    if (!list || list->showsTags())
        return {};
    if (searches)
        return tr("No tag has this text in its name.");
    if (!m_allTags)
        return tr("No library is open.");
    const bool canChange = m_letterList->canChangeTags();
    const bool isFavorites = m_page && m_page->id == TagManagerPage::Favorites;
    const bool isAllTags = m_page && m_page->id == TagManagerPage::AllTags;
    if (isAllTags || !m_libraryHasTags)
        return canChange && !isFavorites ? tr("There are no tags yet. “Create Tags” makes the first one.")
                                         : tr("There are no tags yet.");
    if (isFavorites)
        return canChange ? tr("No favorite tags yet. Right-click a tag on the page “All Tags” and choose “Set as "
                              "Favorite Tag”.")
                         : tr("No favorite tags yet.");
    return canChange ? tr("No tags here. To file a tag, drag it onto the tile of a category, or right-click it and "
                          "choose “Add to Category”.")
                     : tr("No tags here.");
}

void VLAllTagWidget::slotSearchChanged(const QString& text)
{
    if (!m_letterList || !m_searchList)
        return;
    m_letterList->setVisible(text.isEmpty());
    m_searchList->setVisible(!text.isEmpty());
    const QPointer<VLAllTagWidget> self(this);
    m_searchList->reload(text);
    if (!self)
        return;
    settleContent();
    emit searchTextChanged(text);
}

/// The field's painting is on its way already and comes first; what the lists posted for themselves would come after
/// it, so that everything would be painted twice.
void VLAllTagWidget::settleContent()
{
    for (QWidget* widget : {static_cast<QWidget*>(m_searchList), static_cast<QWidget*>(m_letterList), m_scrollWidget,
                            m_scrollArea->viewport()})
        QCoreApplication::sendPostedEvents(widget, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
}

/// The one that the page shows; null on a page without lists.
VLTagGroupListView* VLAllTagWidget::shownList() const
{
    return m_searchEdit->text().isEmpty() ? m_letterList : m_searchList;
}

/// The field is followed through a queue.
void VLAllTagWidget::followFieldNow()
{
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

bool VLAllTagWidget::revealTag(qint64 tag_id)
{
    const QPointer<VLAllTagWidget> self(this);
    followFieldNow();
    if (!self || !isVisible() || !shownList())
        return false;
    shownList()->readPending();
    if (!self || !shownList())
        return false;
    VLTagListView* chips = shownList()->listOf(tag_id);
    if (!chips)
        return false;
    m_scrollArea->layOutContent();
    chips->revealTag(tag_id);
    return true;
}

QVector<qint64> VLAllTagWidget::searchResults(int limit)
{
    const QPointer<VLAllTagWidget> self(this);
    followFieldNow();
    return self && m_searchList && !m_searchEdit->text().isEmpty() ? m_searchList->resultIds(limit) : QVector<qint64>();
}

void VLAllTagWidget::setChipDragEnabled(bool enabled)
{
    for (VLTagGroupListView* list : {m_letterList, m_searchList}) {
        if (list)
            list->setChipDragEnabled(enabled);
    }
}

int VLAllTagWidget::scrollValue() const
{
    return m_scrollArea ? m_scrollArea->verticalScrollBar()->value() : 0;
}

void VLAllTagWidget::slotSetOriScrollValue(int value)
{
    if (m_scrollArea)
        m_scrollArea->verticalScrollBar()->setValue(value);
}

void VLAllTagWidget::rebuild()
{
    clearSearch();
    if (!m_scrollArea)
        return;
    const int value = m_scrollArea->verticalScrollBar()->value();
    while (m_contentLayout->count() > 0)
        delete m_contentLayout->takeAt(0);
    for (QWidget* content : qAsConst(m_keptContent))
        m_contentLayout->addWidget(content);
    m_contentLayout->addStretch();
    const QPointer<VLAllTagWidget> self(this);
    if (m_letterList)
        m_letterList->reload(QString());
    if (!self)
        return;
    m_contentLayout->activate();
    slotSetOriScrollValue(value);
    updatePage();
}

bool VLAllTagWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_scrollArea && m_scrollBar) {
        const bool fits = m_scrollArea->verticalScrollBar()->maximum() <= 0;
        if (event->type() == QEvent::Enter && !fits)
            m_scrollBar->show();
        else if (event->type() == QEvent::Leave)
            m_scrollBar->hide();
        if (event->type() == QEvent::Resize || event->type() == QEvent::Leave)
            m_scrollBar->place();
    }
    return false;
}
