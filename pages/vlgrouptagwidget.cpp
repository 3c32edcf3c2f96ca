// SPDX-License-Identifier: MIT
#include "pages/vlgrouptagwidget.h"

#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "pages/dragscroller.h"
#include "pages/tilescrollarea.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/chipscrollarea.h"
#include "taglist/vltaggrouplistview.h"
#include "widgets/menupopup.h"
#include "widgets/vlsvgwidget.h"
#include "widgets/vltallboxlayout.h"

#include <itagaction.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>
#include <tagrecords.h>
#include <vleventtrack.h>
#include <vlskinsetting.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <memory>

namespace {

template <typename Layout>
Layout* makeTightLayout(const QMargins& margins = {})
{
    auto* layout = new Layout;
    layout->setContentsMargins(margins);
    layout->setSpacing(0);
    return layout;
}

QLabel* makePlainLabel(const QString& objectName, int fontPixelSize, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setPixelSize(fontPixelSize);
    label->setFont(font);
    return label;
}

}  // namespace

VLGroupTagWidget::VLGroupTagWidget(int type, QWidget* parent)
    : VLAllTagWidget(type, parent)
    , m_groupAction(VLTagManagerSingleton::instance()->tagGroupAction())
    , m_tagAction(VLTagManagerSingleton::instance()->tagAction())
{
    m_iconWidget->setFixedSize(16, 16);
}

VLGroupTagWidget::~VLGroupTagWidget()
{
    if (m_choicesUnderWay > 0)
        deleteMenuSoon(m_menu);
}

void VLGroupTagWidget::initialise(const QSharedPointer<ITagGroupDataProvider>& root,
                                  const QVector<QSharedPointer<ITagGroupDataProvider>>& groups)
{
    const QPointer<VLGroupTagWidget> self(this);
    followLibrary();
    // Without a parent that the host could delete from inside the reading.
    auto rootTile = std::make_unique<CTagGroupItemWidget>(root, nullptr);
    if (!self)
        return;
    makeMenu();
    adjustFrame();
    m_rootTile = rootTile.release();
    placeRootTile();
    makeGroupList();
    auto* halves = makeTightLayout<QHBoxLayout>();
    halves->addLayout(makeCategoryHalf(), 1);
    halves->addLayout(makeTagHalf(), 1);
    m_mainLayout->addLayout(halves);
    connect(makeCreateButton(), &QPushButton::clicked, this, &VLGroupTagWidget::createTag);
    setTabOrder(m_createButton, m_groupScrollArea);
    setTabOrder(m_groupScrollArea, m_scrollArea);
    setTabOrder(m_scrollArea, m_letterList);

    m_groupList->fill(groups);
    if (!self)
        return;
    connectRootTile();
    connectGroupList();
    showRootGroup(root);
    if (!self)
        return;
    attachOverlayBar();
    VLSkinSetting::GetInstance()->SetWidgetStyleSheetWithQssName(this, QStringLiteral("tagmanager"));
}

void VLGroupTagWidget::showRootGroup(const QSharedPointer<ITagGroupDataProvider>& root)
{
    const QPointer<VLGroupTagWidget> self(this);
    const QString name = root ? root->groupName() : QString();
    const QString tagCount = root ? QString::number(root->tagCount(1)) : QString();
    if (!self)
        return;
    if (root)
        emit m_rootTile->signSelectedChanged(name, tagCount, root);
    else
        m_letterList->setDataProvider({});
}

void VLGroupTagWidget::createTag()
{
    const QPointer<VLGroupTagWidget> self(this);
    VlEventTrack::GetInstance()->ClickTagManagerAddBtn(1);
    if (self)
        m_letterList->slotAddTag();
}

void VLGroupTagWidget::adjustFrame()
{
    m_titleLayout->setContentsMargins(21, 2, 0, 0);
    m_desLayout->setContentsMargins(46, 0, 0, 0);
    m_searchIcon->hide();
}

void VLGroupTagWidget::placeRootTile()
{
    m_rootTile->setParent(this);
    m_rootTile->setFixedSize(CTagGroupItemWidget::sideLength, CTagGroupItemWidget::sideLength);
    m_rootTile->setSelected(true);
    // Without a category it would look like the tile that creates one.
    m_rootTile->setHidden(!m_rootTile->provider());
}

void VLGroupTagWidget::makeGroupList()
{
    m_groupList = new CTagGroupShowWidgt(this);
}

QLayout* VLGroupTagWidget::makeCategoryHalf()
{
    m_groupScrollArea = new TileScrollArea(m_groupList, this);
    m_groupScrollArea->setObjectName(QStringLiteral("tag_group_scroll"));
    m_groupScrollArea->setFocusPolicy(Qt::ClickFocus);
    m_groupScrollArea->setFrameShape(QFrame::NoFrame);
    m_groupScrollArea->setWidgetResizable(true);
    m_groupScrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_groupScrollArea->installEventFilter(this);
    m_groupScrollWidget = new QWidget(m_groupScrollArea);
    m_groupScrollWidget->setObjectName(QStringLiteral("tag_group_scroll_widget"));
    m_groupScrollArea->setWidget(m_groupScrollWidget);
    auto* scroller = new DragScroller(m_groupScrollArea);
    connect(m_rootTile, &CTagGroupItemWidget::dragMovedOver, scroller, &DragScroller::setDragTarget);
    connect(m_groupList, &CTagGroupShowWidgt::dragMovedOver, scroller, &DragScroller::setDragTarget);

    auto* rootRow = makeTightLayout<QHBoxLayout>({20, 0, 0, 0});
    rootRow->setAlignment(Qt::AlignLeft);
    rootRow->addWidget(m_rootTile);
    auto* listRow = makeTightLayout<QHBoxLayout>({2, 0, 0, 0});
    listRow->setAlignment(Qt::AlignLeft);
    listRow->addWidget(m_groupList);

    auto* content = makeTightLayout<QVBoxLayout>();
    content->addSpacing(11);
    content->addLayout(rootRow);
    content->addSpacing(12);
    content->addLayout(listRow, 1);
    m_groupScrollWidget->setLayout(content);

    auto* half = makeTightLayout<QVBoxLayout>();
    half->addSpacing(-1);
    half->addWidget(m_groupScrollArea);
    return half;
}

QLayout* VLGroupTagWidget::makeHeader()
{
    m_nameLabel = makePlainLabel(QStringLiteral("tag_manager_group_name"), 16, this);
    // A name of any length must not keep the window from getting narrow.
    m_nameLabel->setMinimumWidth(1);
    m_selectedCountLabel = makePlainLabel(QStringLiteral("tag_manager_group_count"), 14, this);
    auto* indent = new QLabel(this);
    indent->setFixedWidth(26);

    auto* header = makeTightLayout<QHBoxLayout>();
    header->addWidget(indent);
    header->addWidget(m_nameLabel);
    header->addWidget(m_selectedCountLabel);
    header->addStretch();
    return header;
}

QLayout* VLGroupTagWidget::makeTagHalf()
{
    auto* half = makeTightLayout<QVBoxLayout>({3, 0, 0, 0});
    half->addSpacing(7);
    half->addLayout(makeHeader());
    half->addSpacing(23);
    half->addWidget(makeScrollArea(QStringLiteral("tag_group_tag_scroll"),
                                   QStringLiteral("tag_group_tag_scroll_widget"), {10, 0, 0, 0}));
    m_contentLayout->setSizeConstraint(QLayout::SetMinimumSize);
    m_letterList = makeList(true);
    m_letterList->setReadWhenShown();
    keepContent(QStringLiteral("letters"), m_letterList);
    return half;
}

void VLGroupTagWidget::connectRootTile()
{
    connect(m_rootTile, &CTagGroupItemWidget::signPopMenu, this, &VLGroupTagWidget::slotPopMenu);
    connect(m_rootTile, &CTagGroupItemWidget::signalGroupInfoChanged, this,
            [this](const QString& name, int tagCount) { showHeader(name, QString::number(tagCount)); });
    connect(m_rootTile, &CTagGroupItemWidget::signSelectedChanged, this,
            [this](const QString& name, const QString& tagCount,
                   const QSharedPointer<const ITagGroupDataProvider>& provider) {
                m_groupList->deselectTiles();
                showGroup(name, tagCount, provider);
            });
}

void VLGroupTagWidget::connectGroupList()
{
    connect(m_groupList, &CTagGroupShowWidgt::signPopMenu, this, &VLGroupTagWidget::slotPopMenu);
    connect(m_groupList, &CTagGroupShowWidgt::signAddGroup, this, &VLGroupTagWidget::slotAddGroup);
    connect(m_groupList, &CTagGroupShowWidgt::signAddGroupTag, this, &VLGroupTagWidget::slotAddGroupTag);
    connect(m_groupList, &CTagGroupShowWidgt::signalGroupInfoChanged, this,
            [this](const QString& name, int tagCount) { showHeader(name, QString::number(tagCount)); });
    connect(m_groupList, &CTagGroupShowWidgt::signSelectedChanged, this,
            [this](const QString& name, const QString& tagCount,
                   const QSharedPointer<const ITagGroupDataProvider>& provider) {
                m_rootTile->setSelected(false);
                showGroup(name, tagCount, provider);
            });
}

void VLGroupTagWidget::addGroups(const QVector<qint64>& g_ids)
{
    auto* shared = VLTagManagerSingleton::instance();
    const QPointer<VLGroupTagWidget> self(this);
    for (const qint64 g_id : g_ids) {
        const auto provider = shared->tagGroupProvider(g_id);
        if (!self)
            return;
        const bool added = m_groupList->addGroup(provider);
        if (added)
            emit shared->signalAddGroupAction(g_id);
        if (!self)
            return;
    }
}

void VLGroupTagWidget::removeGroups(const QVector<qint64>& g_ids)
{
    const QPointer<VLGroupTagWidget> self(this);
    for (const qint64 g_id : g_ids) {
        if (m_groupList->removeGroup(g_id))
            selectRootGroup();
        emit VLTagManagerSingleton::instance()->signalRemoveGroupAction(g_id);
        if (!self)
            return;
    }
}

void VLGroupTagWidget::showHeader(const QString& name, const QString& tagCount)
{
    m_nameLabel->setText(name);
    m_selectedCountLabel->setText(QLatin1Char('(') + tagCount + QLatin1Char(')'));
}

void VLGroupTagWidget::showGroup(const QString& name, const QString& tagCount,
                                 const QSharedPointer<const ITagGroupDataProvider>& provider)
{
    showHeader(name, tagCount);
    const QPointer<VLGroupTagWidget> self(this);
    m_letterList->setDataProvider(qSharedPointerConstCast<ITagGroupDataProvider>(provider));
    if (self)
        noteSelection();
}

CTagGroupItemWidget* VLGroupTagWidget::selectedTile() const
{
    CTagGroupItemWidget* tile = m_groupList ? m_groupList->selectedTile() : nullptr;
    if (tile)
        return tile;
    return m_rootTile && m_rootTile->provider() && m_rootTile->isSelected() ? m_rootTile : nullptr;
}

void VLGroupTagWidget::noteSelection()
{
    CTagGroupItemWidget* tile = selectedTile();
    if (m_notedTile == tile)
        return;
    m_notedTile = tile;
    const QPointer<VLGroupTagWidget> self(this);
    const qint64 id = selectedGroupId();
    if (self)
        emit selectedGroupChanged(id);
}

qint64 VLGroupTagWidget::selectedGroupId() const
{
    const CTagGroupItemWidget* tile = selectedTile();
    return tile ? tile->groupId() : taggroupid::none;
}

bool VLGroupTagWidget::selectGroup(qint64 g_id)
{
    QPointer<CTagGroupItemWidget> tile =
        g_id == taggroupid::fixed && m_rootTile->provider() ? m_rootTile : m_groupList->tileOf(g_id);
    if (!tile)
        return false;
    tile->select();
    if (!tile)
        return false;
    m_groupScrollArea->layOutContent();
    m_groupScrollArea->ensureWidgetVisible(tile, 0, 0);
    return true;
}

void VLGroupTagWidget::selectRootGroup()
{
    const QPointer<VLGroupTagWidget> self(this);
    const auto root = VLTagManagerSingleton::instance()->tagGroupProvider(taggroupid::fixed);
    const auto record = root ? root->groupInfo() : nullptr;
    const int tagCount = record ? root->tagCount(1) : 0;
    if (!record || !self)
        return;
    m_rootTile->setSelected(true);
    emit m_rootTile->signSelectedChanged(record->name(), QString::number(tagCount), root);
    if (!self)
        return;
    m_groupList->viewport()->update();
    emit m_groupList->model()->layoutChanged();
}
