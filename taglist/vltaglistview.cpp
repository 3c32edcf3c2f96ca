// SPDX-License-Identifier: MIT
#include "taglist/vltaglistview.h"

#include "plugin/vltagmanagersingleton.h"
#include "taglist/initialletter.h"
#include "taglist/sortfilterproxymodel.h"
#include "taglist/tagdrag.h"
#include "taglist/taglistrow.h"

#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <tagrecords.h>
#include <vleventtrack.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHoverEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int chipSpacing = 16;
constexpr int letterPixelSize = 12;
constexpr int doubleClickJoin = 1;  // how usage tracking names a double click on a chip

/// Whether something of a widget lies within all that is around it.
bool isInView(const QWidget* widget)
{
    QRect rect = widget->rect();
    while (!rect.isEmpty() && !widget->isWindow() && widget->parentWidget()) {
        rect = rect.translated(widget->pos()) & widget->parentWidget()->rect();
        widget = widget->parentWidget();
    }
    return !rect.isEmpty();
}

/// A widget that was shown asks to be painted; the toolkit then compares it with all its siblings, also where nothing
/// of it can be seen, which for thousands of sections takes seconds. What comes into view is painted anyway.
bool isIdlePaintRequest(const QEvent* event, const QWidget* widget)
{
    return event->type() == QEvent::UpdateLater && !isInView(widget);
}

}  // namespace

/// Counts the handlers of this view that are on the stack; safe when the view is deleted by what they trigger.
class VLTagListView::BusyScope
{
public:
    explicit BusyScope(VLTagListView* view)
        : m_view(view)
    {
        ++view->m_busyDepth;
    }
    ~BusyScope()
    {
        if (m_view)
            --m_view->m_busyDepth;
    }
    [[nodiscard]] bool viewIsGone() const { return m_view.isNull(); }

private:
    Q_DISABLE_COPY(BusyScope)
    QPointer<VLTagListView> m_view;
};

VLTagListView::VLTagListView(const QVector<TagItem>& items, QWidget* parent, Following tags)
    : QListView(parent)
    , m_letterLabel(new QLabel(this))
    , m_rows(this, [this, tags](const TagItem& item) {
        return tags == Following::View ? follow(item) : QMetaObject::Connection();
    })
{
    setObjectName(QStringLiteral("tag_list_view"));
    QFont letterFont;
    letterFont.setPixelSize(letterPixelSize);
    m_letterLabel->setObjectName(QStringLiteral("tag_list_vew_char"));
    m_letterLabel->setFont(letterFont);
    m_letterLabel->setTextFormat(Qt::PlainText);
    m_letterLabel->hide();
    m_letterLabel->installEventFilter(this);
    m_rows.add(items);
    m_rows.open();
    setUpAppearance();
    setUpModel();
}

VLTagListView::~VLTagListView()
{
    if (!m_drag)
        return;
    // The drag's own event loop is on the stack and still needs the object.
    m_drag->setParent(nullptr);
    QDrag::cancel();
}

QMetaObject::Connection VLTagListView::follow(const TagItem& item)
{
    return connect(item.provider.data(), &IDataProvider::signalUpdated, this, [this, id = item.id] { refreshTag(id); });
}

void VLTagListView::setUpModel()
{
    m_flow.setSpacing(chipSpacing);
    m_flow.setRowHeight(ChipMetrics::height);
    setModel(m_rows.proxy());
    followModel();
}

void VLTagListView::setUpAppearance()
{
    setViewMode(IconMode);
    setFlow(LeftToRight);
    setResizeMode(Adjust);
    setUpScrollBars();
    setSpacing(chipSpacing);
    setContentsMargins(0, 0, 0, 0);
    setEditTriggers(NoEditTriggers);
    setLayoutMode(SinglePass);
    viewport()->setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_MouseTracking);
    viewport()->setAttribute(Qt::WA_MouseTracking);
    setDragDropMode(DragOnly);
}

void VLTagListView::setUpScrollBars()
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setStyleSheet(QStringLiteral("border:0px;"));
    verticalScrollBar()->setStyleSheet(QStringLiteral("QScrollBar::sub-page:vertical {width:0px;}"
                                                      "QScrollBar::add-page:vertical{width:0px;}"
                                                      "QScrollBar:vertical{ width:0px;}"
                                                      "QScrollBar::handle:vertical{ width:0px;} "));
    horizontalScrollBar()->setStyleSheet(QStringLiteral("QScrollBar::sub-page:horizontal {height:0px;}"
                                                        "QScrollBar::add-page:horizontal{height:0px;}"
                                                        "QScrollBar:horizontal{ height:0px;}"
                                                        "QScrollBar::handle:horizontal{height:0px;} "));
}

/// Keeps one width for each row of the proxy.
void VLTagListView::followModel()
{
    const auto* proxy = m_rows.proxy();
    connect(proxy, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { insertWidths(first, last); });
    connect(proxy, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int first, int last) {
        if (m_widthsAreCurrent)
            m_flow.removeRows(first, last - first + 1);
    });
    connect(proxy, &QAbstractItemModel::modelReset, this, &VLTagListView::invalidateWidths);
    connect(proxy, &QAbstractItemModel::layoutChanged, this, [this] {
        if (!m_orderIsCurrent)
            invalidateWidths();
    });
}

void VLTagListView::invalidateWidths()
{
    m_widthsAreCurrent = false;
    fitSoon();
}

void VLTagListView::insertWidths(int first, int last)
{
    if (!m_widthsAreCurrent)
        return;
    m_flow.insertWidths(first, chipWidths(first, last));
}

/// Chips are measured when somebody needs to know where they stand, not before.
ChipFlow& VLTagListView::flow() const
{
    if (!m_widthsAreCurrent) {
        m_widthsAreCurrent = true;
        m_flow.setWidths(chipWidths(0, model()->rowCount() - 1));
    }
    m_flow.setAvailableWidth(viewport()->width());
    return m_flow;
}

std::vector<int> VLTagListView::chipWidths(int first, int last) const
{
    ChipMetrics& metrics = ChipMetrics::shared();
    std::vector<int> widths;
    widths.reserve(last - first + 1);
    for (int row = first; row <= last; ++row) {
        const TagItem& tag = tagAt(model()->index(row, 0));
        widths.push_back(metrics.chipSize(tag.name, tag.fileCount, chipLook()).width());
    }
    return widths;
}

void VLTagListView::setCountShown(bool shown)
{
    if (m_countShown == shown)
        return;
    m_countShown = shown;
    invalidateWidths();
}

void VLTagListView::setMenuEnabled(bool enabled)
{
    m_menuEnabled = enabled;
}

void VLTagListView::setChipDragEnabled(bool enabled)
{
    m_chipDragEnabled = enabled;
}

void VLTagListView::setEnlargement(bool first, bool second)
{
    m_firstEnlargement = first;
    m_secondEnlargement = second;
    m_flow.setRowHeight(ChipMetrics::chipHeight(chipLook()));
    invalidateWidths();
}

ChipLook VLTagListView::chipLook() const
{
    return {m_countShown, m_firstEnlargement || m_secondEnlargement};
}

void VLTagListView::setTrailingRow(bool kept)
{
    m_trailingRow = kept;
    m_rows.setTrailingRow(kept);
}

void VLTagListView::setBottomPad(int pad)
{
    m_bottomPad = pad;
    fitSoon();
}

void VLTagListView::setTopMargin(int margin)
{
    m_topMargin = margin;
    QMargins margins = contentsMargins();
    margins.setTop(margin);
    setViewportMargins(margins);
    fitSoon();
}

void VLTagListView::setLetter(const QString& letter, int x, int y)
{
    m_letterLabel->setText(letter);
    m_letterLabel->move(x, y);
    m_letterLabel->show();
    m_rows.proxy()->setSortBySearch(false);
}

QString VLTagListView::letter() const
{
    return m_letterLabel->text();
}

void VLTagListView::setSearchText(const QString& text)
{
    m_rows.proxy()->setSearchText(text);
}

void VLTagListView::setGroupProvider(const QSharedPointer<ITagGroupDataProvider>& provider, Following following)
{
    if (m_groupProvider)
        disconnect(m_groupProvider.data(), nullptr, this, nullptr);
    m_groupProvider = provider;
    if (!provider || following == Following::Owner)
        return;
    connect(provider.data(), &ITagGroupDataProvider::signalAddTags, this, &VLTagListView::slotAddCallBack);
    connect(provider.data(), &ITagGroupDataProvider::signalRemoveTags, this, &VLTagListView::slotRemoveCallBack);
}

void VLTagListView::addTag(const TagItem& item)
{
    addTags({item});
}

void VLTagListView::addTags(const QVector<TagItem>& items)
{
    m_rows.add(items);
    fitNowOrWhenShown();
}

void VLTagListView::removeTags(const QVector<qint64>& tag_ids)
{
    if (m_rows.count() > 0) {
        m_rows.remove(tag_ids);
        fitNowOrWhenShown();
    }
    if (m_rows.count() == 0)
        emit signalEmpty();
}

void VLTagListView::removeAllRows()
{
    m_rows.clear();
    fitNowOrWhenShown();
}

void VLTagListView::refreshTag(qint64 tag_id)
{
    const BusyScope busy(this);
    const TagListRow* shown = m_rows.rowOfTag(tag_id);
    const std::optional<TagItem> item = shown ? readTagItem(shown->tag().provider) : std::nullopt;
    if (!item || busy.viewIsGone())
        return;
    // The host may have taken the tag away from inside the reading.
    TagListRow* row = m_rows.rowOfTag(tag_id);
    if (!row)
        return;
    if (!m_rows.proxy()->isSortedBySearch() && initialLetter(item->name) != letter()) {
        emit signalCharNoMatch({tag_id});
        if (!busy.viewIsGone())
            emit signTagUpdated(tag_id);
        if (!busy.viewIsGone())
            slotDelItem(tag_id);
    } else {
        TagItem refreshed = *item;
        refreshed.id = tag_id;
        m_rows.update(row, refreshed);
        fitSoon();
        emit signTagUpdated(tag_id);
    }
}

const TagItem& VLTagListView::tagAt(const QModelIndex& index) const
{
    return m_rows.rowAt(index)->tag();
}

QRect VLTagListView::visualRect(const QModelIndex& index) const
{
    return flow().rect(index.isValid() ? index.row() : -1);
}

QModelIndex VLTagListView::indexAt(const QPoint& point) const
{
    const int row = flow().rowAt(point);
    return row < 0 ? QModelIndex() : model()->index(row, 0);
}

/// The view shows all of itself: it is the scroll area around it that has to move.
void VLTagListView::scrollTo(const QModelIndex& index, ScrollHint)
{
    const QRect chip = visualRect(index);
    for (QWidget* ancestor = parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(ancestor);
        if (!area || !area->widget() || area->verticalScrollBar()->maximum() == 0)
            continue;
        const QPoint center = viewport()->mapTo(area->widget(), chip.center());
        area->ensureVisible(center.x(), center.y(), 0, chip.height() + chipSpacing);
        return;
    }
}

/// QListView would measure and place every row.
void VLTagListView::doItemsLayout()
{
    updateGeometries();
    if (isInView(viewport()))
        viewport()->update();
}

void VLTagListView::slotUpdateLayout()
{
    m_orderIsCurrent = true;
    emit m_rows.proxy()->layoutChanged();
    m_orderIsCurrent = false;
    // The base class waits with a timer of its own; thousands of sections would wait in one long list of timers.
    executeDelayedItemsLayout();
    fitHeight();
}

void VLTagListView::slotDelItem(qint64 tag_id)
{
    removeTags({tag_id});
}

void VLTagListView::slotAddCallBack(QVector<qint64> tag_ids)
{
    const auto group = m_groupProvider;
    if (!group)
        return;
    const BusyScope busy(this);
    const QString shownLetter = letter();
    QHash<qint64, QSharedPointer<ITagDataProvider>> found;
    if (group->tagsByIds(tag_ids, &found) < 1)
        return;
    QVector<TagItem> items;
    for (const auto& provider : qAsConst(found)) {
        if (!provider || initialLetter(provider->name()) != shownLetter)
            continue;
        if (const auto item = readTagItem(provider))
            items.append(*item);
    }
    if (!items.isEmpty() && !busy.viewIsGone())
        addTags(items);
}

void VLTagListView::slotRemoveCallBack(QVector<qint64> tag_ids)
{
    const auto isUnknown = [this](qint64 id) { return !m_rows.contains(id); };
    tag_ids.erase(std::remove_if(tag_ids.begin(), tag_ids.end(), isUnknown), tag_ids.end());
    if (!tag_ids.isEmpty())
        removeTags(tag_ids);
}

void VLTagListView::slotUpdateCallBack()
{
    const auto* provider = qobject_cast<ITagDataProvider*>(sender());
    if (!provider)
        return;
    const BusyScope busy(this);
    const auto info = provider->tagInfo();
    if (info && !busy.viewIsGone())
        refreshTag(info->id());
}

/// Brings the view to the height of its chips.
void VLTagListView::fitHeight()
{
    m_fitScheduled = false;
    const ChipFlow& chips = flow();
    const QRect last = chips.rect(chips.rowCount() - 1);
    const int height = last.y() + last.height() + m_topMargin + m_bottomPad;
    if (minimumHeight() != height || maximumHeight() != height)
        setFixedHeight(height);
    if (isInView(viewport()))
        viewport()->update();
}

/// Several changes in one turn of the event loop cost one fit; a hidden view is fitted when it is shown.
void VLTagListView::fitSoon()
{
    if (m_fitScheduled || !isVisible())
        return;
    m_fitScheduled = true;
    const auto fit = [this] {
        if (m_fitScheduled)
            fitHeight();
    };
    QMetaObject::invokeMethod(this, fit, Qt::QueuedConnection);
}

void VLTagListView::fitNowOrWhenShown()
{
    if (isVisible())
        fitHeight();
}

bool VLTagListView::event(QEvent* event)
{
    if (isIdlePaintRequest(event, this))
        return true;
    const BusyScope busy(this);
    return QListView::event(event);
}

bool VLTagListView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_letterLabel)
        return isIdlePaintRequest(event, m_letterLabel);
    return QListView::eventFilter(watched, event);
}

bool VLTagListView::viewportEvent(QEvent* event)
{
    if (isIdlePaintRequest(event, viewport()))
        return true;
    const BusyScope busy(this);
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
        setHoveredIndex(indexAt(static_cast<QHoverEvent*>(event)->pos()));
        break;
    case QEvent::HoverLeave:
        setHoveredIndex({});
        break;
    default:
        break;
    }
    return QListView::viewportEvent(event);
}

void VLTagListView::setHoveredIndex(const QModelIndex& index)
{
    if (m_hovered == index)
        return;
    // A chip is painted one pixel beyond its rectangle.
    const QMargins bleed(0, 0, 1, 0);
    viewport()->update(visualRect(m_hovered) + bleed);
    m_hovered = index;
    viewport()->update(visualRect(m_hovered) + bleed);
}

void VLTagListView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QStyleOptionViewItem option = viewOptions();
    const ChipFlow::RowRange rows = flow().rowsOfLines(event->rect());
    for (int row = rows.first; row < rows.last; ++row) {
        const QModelIndex index = model()->index(row, 0);
        if (event->region().intersects(visualRect(index) + QMargins(1, 0, 1, 0)))
            paintChip(&painter, option, index);
    }
}

void VLTagListView::paintChip(QPainter* painter, QStyleOptionViewItem option, const QModelIndex& index) const
{
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_MouseOver, m_hovered == index);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, hasFocus() && currentIndex() == index);
    itemDelegate(index)->paint(painter, option, index);
}

void VLTagListView::resizeEvent(QResizeEvent*)
{
    slotUpdateLayout();
}

void VLTagListView::showEvent(QShowEvent* event)
{
    slotUpdateLayout();
    fitHeight();
    QListView::showEvent(event);
}

void VLTagListView::mousePressEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        m_pressPosition = event->pos();
    QListView::mousePressEvent(event);
}

void VLTagListView::mouseMoveEvent(QMouseEvent* event)
{
    const bool isLeftDrag = (event->buttons() & Qt::LeftButton) && m_chipDragEnabled;
    if (!isLeftDrag || m_drag)
        return;
    if ((event->pos() - m_pressPosition).manhattanLength() < QApplication::startDragDistance())
        return;
    const QModelIndex index = indexAt(m_pressPosition);
    setCurrentIndex(index);
    if (index.isValid())
        dragChip(index);
}

void VLTagListView::mouseReleaseEvent(QMouseEvent* event)
{
    const BusyScope busy(this);
    QListView::mouseReleaseEvent(event);
    if (busy.viewIsGone() || !m_menuEnabled || event->button() != Qt::RightButton)
        return;
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid())
        return;
    const TagItem tag = tagAt(index);
    emit signPopMenu(tag.id, tag.name);
}

void VLTagListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const BusyScope busy(this);
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && event->button() == Qt::LeftButton) {
        const TagItem tag = tagAt(index);
        emit signCheckTagLinkFile(tag.id, tag.name);
        VlEventTrack::GetInstance()->SendLabelJoin(doubleClickJoin);
    }
    if (!busy.viewIsGone())
        QListView::mouseDoubleClickEvent(event);
}

/// The menu of the mouse opens when its button is released; this is for the keyboard.
void VLTagListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard || !m_menuEnabled || !currentIndex().isValid())
        return;
    const TagItem tag = tagAt(currentIndex());
    emit signPopMenu(tag.id, tag.name);
}

/// There is nothing to scroll: all chips are shown. The base class would start a timer to ask for more rows, which for
/// thousands of sections is one long list of timers; this model has all its rows.
void VLTagListView::updateGeometries()
{
    horizontalScrollBar()->setRange(0, 0);
    verticalScrollBar()->setRange(0, 0);
}

QModelIndex VLTagListView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int count = flow().rowCount();
    if (count == 0)
        return {};
    int row = currentIndex().isValid() ? currentIndex().row() : -1;
    switch (action) {
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = count - 1;
        break;
    case MoveLeft:
    case MovePrevious:
        --row;
        break;
    case MoveRight:
    case MoveNext:
        ++row;
        break;
    case MoveUp:
    case MovePageUp:
        row = flow().rowInOtherLine(std::max(row, 0), -1);
        break;
    case MoveDown:
    case MovePageDown:
        row = row < 0 ? 0 : flow().rowInOtherLine(row, 1);
        break;
    }
    return model()->index(qBound(0, row, count - 1), 0);
}

void VLTagListView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command)
{
    QItemSelection selection;
    const ChipFlow::RowRange rows = flow().rowsOfLines(rect.normalized());
    for (int row = rows.first; row < rows.last; ++row) {
        const QModelIndex index = model()->index(row, 0);
        if (visualRect(index).intersects(rect.normalized()))
            selection.select(index, index);
    }
    selectionModel()->select(selection, command);
}

QRegion VLTagListView::visualRegionForSelection(const QItemSelection& selection) const
{
    QRegion region;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            region += flow().rect(row);
    }
    return region;
}

void VLTagListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>&)
{
    if (!m_widthsAreCurrent)
        return;
    int row = topLeft.row();
    for (const int width : chipWidths(row, bottomRight.row()))
        m_flow.setWidth(row++, width);
    fitSoon();
}

/// Runs the drag in its own event loop, in which anything may happen to this view.
void VLTagListView::dragChip(const QModelIndex& index)
{
    const BusyScope busy(this);
    QRect area = visualRect(index);
    const int shift = area.height() / 2 + 3;
    area.adjust(0, shift, 5, shift);
    m_drag = new QDrag(this);
    m_drag->setMimeData(makeTagMimeData(tagAt(index).id));
    m_drag->setPixmap(makeDragImage(this, area));
    m_drag->exec(Qt::MoveAction);
    if (busy.viewIsGone())
        return;
    m_drag.clear();
    setState(NoState);
}
