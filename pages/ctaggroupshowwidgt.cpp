// SPDX-License-Identifier: MIT
#include "pages/ctaggroupshowwidgt.h"

#include "pages/ctaggroupitemwidget.h"

#include <tagrecords.h>

#include <QPointer>
#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using GroupPointer = QSharedPointer<ITagGroupDataProvider>;

/// Logical pixels between the tiles and around them.
constexpr int tileSpacing = 18;

/// The id under which a category is known here for as long as it is shown.
qint64 shownId(const ITagGroupDataProvider& provider)
{
    const auto record = provider.groupInfo();
    return record ? record->id() : provider.groupId();
}

}  // namespace

CTagGroupShowWidgt::Group::Group(const GroupPointer& provider)
    : id(shownId(*provider))
    // Without a parent that the host could delete from inside the reading.
    , tile(std::make_unique<CTagGroupItemWidget>(provider, nullptr))
    , name(provider->groupName())
{
}

CTagGroupShowWidgt::CTagGroupShowWidgt(QWidget* parent)
    : QListWidget(parent)
{
    setUpView();
}

CTagGroupShowWidgt::~CTagGroupShowWidgt() = default;

void CTagGroupShowWidgt::setUpView()
{
    setObjectName(QStringLiteral("tag_group_show_widget"));
    setViewMode(QListView::IconMode);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSpacing(tileSpacing);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_MouseTracking);
    setFrameShape(QFrame::NoFrame);
    // The tiles show their own selection; the view's would shine through behind them.
    setSelectionMode(QAbstractItemView::NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
}

void CTagGroupShowWidgt::fill(const QVector<GroupPointer>& providers)
{
    const QPointer<CTagGroupShowWidgt> self(this);
    std::vector<Group> sorted;
    sorted.reserve(providers.size());
    QSet<qint64> known;
    for (const GroupPointer& provider : providers) {
        if (!provider)
            continue;
        Group group(provider);
        if (known.contains(group.id))
            continue;
        known.insert(group.id);
        sorted.push_back(std::move(group));
    }
    if (!self)
        return;
    setUpdatesEnabled(false);
    std::stable_sort(sorted.begin(), sorted.end(), [](const Group& a, const Group& b) { return a.name < b.name; });
    for (Group& group : sorted)
        insertGroup(m_providers.size(), std::move(group));
    if (m_showAddTile) {
        const auto* tile = insertTile(count(), std::make_unique<CTagGroupItemWidget>(GroupPointer(), nullptr));
        connect(tile, &CTagGroupItemWidget::signAddGroup, this, &CTagGroupShowWidgt::signAddGroup);
        connect(tile, &CTagGroupItemWidget::dragMovedOver, this, &CTagGroupShowWidgt::dragMovedOver);
    }
    setUpdatesEnabled(true);
    doItemsLayout();
    emit signalClosePopup();
}

bool CTagGroupShowWidgt::addGroup(const GroupPointer& provider)
{
    if (!provider)
        return false;
    const QPointer<CTagGroupShowWidgt> self(this);
    Group group(provider);
    if (!self || m_tiles.contains(group.id))
        return false;
    const auto place = std::upper_bound(m_sortNames.cbegin(), m_sortNames.cend(), group.name);
    insertGroup(int(place - m_sortNames.cbegin()), std::move(group));
    viewport()->update();
    emit signalClosePopup();
    return true;
}

bool CTagGroupShowWidgt::removeGroup(qint64 g_id)
{
    viewport()->update();
    CTagGroupItemWidget* tile = m_tiles.take(g_id);
    if (!tile)
        return false;
    const bool wasSelected = tile->isSelected();
    const int row = m_providers.indexOf(tile->provider());
    tile->disconnect(this);
    tile->provider()->disconnect(tile);
    m_layoutDue = true;
    // Taken out of the view first, which would else keep it; it may be what is reporting right now.
    removeItemWidget(item(row));
    tile->hide();
    tile->setParent(nullptr);
    delete takeItem(row);
    m_providers.remove(row);
    m_sortNames.remove(row);
    return wasSelected;
}

void CTagGroupShowWidgt::deselectTiles()
{
    selectOnly(nullptr);
}

CTagGroupItemWidget* CTagGroupShowWidgt::selectedTile() const
{
    const auto tile = std::find_if(m_tiles.cbegin(), m_tiles.cend(),
                                   [](const CTagGroupItemWidget* each) { return each->isSelected(); });
    return tile == m_tiles.cend() ? nullptr : *tile;
}

QModelIndex CTagGroupShowWidgt::indexOfSelectedTile() const
{
    const CTagGroupItemWidget* tile = selectedTile();
    return tile ? model()->index(m_providers.indexOf(tile->provider()), 0) : QModelIndex();
}

void CTagGroupShowWidgt::layOutIfDue()
{
    if (m_layoutDue)
        doItemsLayout();
}

void CTagGroupShowWidgt::doItemsLayout()
{
    m_layoutDue = false;
    QListWidget::doItemsLayout();
    setMinimumHeight(qMax(0, contentsSize().height()));
}

void CTagGroupShowWidgt::resizeEvent(QResizeEvent* /*event*/)
{
    doItemsLayout();
}

void CTagGroupShowWidgt::updateEditorGeometries()
{
    // The view would place all tiles again for each row that comes or goes, which takes seconds for a few hundred.
    if (!m_layoutDue)
        QListWidget::updateEditorGeometries();
}

CTagGroupItemWidget* CTagGroupShowWidgt::insertTile(int row, std::unique_ptr<CTagGroupItemWidget> newTile)
{
    m_layoutDue = true;
    CTagGroupItemWidget* tile = newTile.release();
    tile->setParent(this);
    // Out of sight until it is laid out.
    tile->move(-CTagGroupItemWidget::sideLength, -CTagGroupItemWidget::sideLength);
    tile->setFixedSize(CTagGroupItemWidget::sideLength, CTagGroupItemWidget::sideLength);
    auto* item = new QListWidgetItem;
    item->setSizeHint(tile->size());
    insertItem(row, item);
    setItemWidget(item, tile);
    return tile;
}

void CTagGroupShowWidgt::insertGroup(int row, Group group)
{
    m_providers.insert(row, group.tile->provider());
    m_sortNames.insert(row, group.name);
    CTagGroupItemWidget* tile = insertTile(row, std::move(group.tile));
    m_tiles.insert(group.id, tile);
    connectTile(tile);
}

void CTagGroupShowWidgt::connectTile(CTagGroupItemWidget* tile)
{
    connect(tile, &CTagGroupItemWidget::signPopMenu, this, &CTagGroupShowWidgt::signPopMenu);
    connect(tile, &CTagGroupItemWidget::signAddGroupTag, this, &CTagGroupShowWidgt::signAddGroupTag);
    connect(tile, &CTagGroupItemWidget::signalGroupInfoChanged, this, &CTagGroupShowWidgt::signalGroupInfoChanged);
    connect(tile, &CTagGroupItemWidget::signalClosePopup, this, &CTagGroupShowWidgt::signalClosePopup);
    connect(tile, &CTagGroupItemWidget::dragMovedOver, this, &CTagGroupShowWidgt::dragMovedOver);
    connect(tile, &CTagGroupItemWidget::signSelectedChanged, this,
            [this, tile](const QString& name, const QString& tagCount,
                         const QSharedPointer<const ITagGroupDataProvider>& provider) {
                selectOnly(tile);
                emit signSelectedChanged(name, tagCount, provider);
            });
    connect(tile->provider().data(), &IDataProvider::signalUpdated, tile,
            [this, tile] { placeByName(tile->provider()); });
}

void CTagGroupShowWidgt::selectOnly(CTagGroupItemWidget* tile)
{
    for (CTagGroupItemWidget* other : std::as_const(m_tiles))
        other->setSelected(other == tile);
}

void CTagGroupShowWidgt::placeByName(GroupPointer provider)  // NOLINT(performance-unnecessary-value-param): kept alive
{
    const QPointer<CTagGroupShowWidgt> self(this);
    m_nameReadings.begin(provider.data());
    const QString name = provider->groupName();
    if (!self || !m_nameReadings.end())
        return;
    const int row = m_providers.indexOf(provider);
    if (row < 0 || m_sortNames.at(row) == name)
        return;
    m_sortNames.remove(row);
    const int target = int(std::upper_bound(m_sortNames.cbegin(), m_sortNames.cend(), name) - m_sortNames.cbegin());
    m_sortNames.insert(target, name);
    if (target == row)
        return;
    m_providers.move(row, target);
    m_layoutDue = true;
    // The model's destination is counted with the row still in its old place.
    model()->moveRow({}, row, {}, target > row ? target + 1 : target);
}
