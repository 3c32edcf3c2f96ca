// SPDX-License-Identifier: MIT
#include "taglist/chipview.h"

#include "taglist/sortfilterproxymodel.h"
#include "taglist/taglistrow.h"
#include "widgets/inview.h"
#include "widgets/plaintooltip.h"

#include <QApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace {

constexpr int chipSpacing = 16;

/// The view whose chip was hovered last; there is one pointer.
QPointer<ChipView>& hoveredView()
{
    static QPointer<ChipView> view;
    return view;
}

}  // namespace

ChipView::ChipView(QWidget* parent, TagRows::Follow follow)
    : QListView(parent)
    , m_rows(this, std::move(follow))
{
}

ChipView::~ChipView() = default;

void ChipView::setUp(QVector<TagItem> items)
{
    m_rows.add(std::move(items));
    m_rows.open();
    setUpAppearance();
    setUpModel();
}

void ChipView::setUpModel()
{
    m_flow.setSpacing(chipSpacing);
    m_flow.setRowHeight(ChipMetrics::height);
    setModel(m_rows.proxy());
    followModel();
    connect(qApp, &QGuiApplication::fontChanged, this, &ChipView::invalidateWidths);
}

void ChipView::setUpAppearance()
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
    // The page would move under a chip that is pressed, and to a chip that becomes current when another one goes.
    setAutoScroll(false);
}

void ChipView::setUpScrollBars()
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
void ChipView::followModel()
{
    const auto* proxy = m_rows.proxy();
    connect(proxy, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { insertWidths(first, last); });
    connect(proxy, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int first, int last) {
        if (m_widthsAreCurrent)
            m_flow.removeRows(first, last - first + 1);
    });
    connect(proxy, &QAbstractItemModel::modelReset, this, &ChipView::invalidateWidths);
    connect(proxy, &QAbstractItemModel::layoutChanged, this, [this] {
        if (!m_orderIsCurrent)
            invalidateWidths();
    });
}

void ChipView::invalidateWidths()
{
    m_widthsAreCurrent = false;
    fitSoon();
}

void ChipView::insertWidths(int first, int last)
{
    if (!m_widthsAreCurrent)
        return;
    m_flow.insertWidths(first, chipWidths(first, last));
}

/// Chips are measured when somebody needs to know where they stand, not before.
ChipFlow& ChipView::flow() const
{
    if (!m_widthsAreCurrent) {
        m_widthsAreCurrent = true;
        m_flow.setWidths(chipWidths(0, model()->rowCount() - 1));
    }
    // As wide as the viewport is going to be: it follows the view later, or only when it is shown.
    m_flow.setAvailableWidth(width() - 2 * frameWidth());
    return m_flow;
}

std::vector<int> ChipView::chipWidths(int first, int last) const
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

void ChipView::setCountShown(bool shown)
{
    if (m_countShown == shown)
        return;
    m_countShown = shown;
    invalidateWidths();
}

void ChipView::setEnlargement(bool first, bool second)
{
    m_firstEnlargement = first;
    m_secondEnlargement = second;
    m_flow.setRowHeight(ChipMetrics::chipHeight(chipLook()));
    invalidateWidths();
}

ChipLook ChipView::chipLook() const
{
    return {m_countShown, m_firstEnlargement || m_secondEnlargement};
}

void ChipView::setBottomPad(int pad)
{
    m_bottomPad = pad;
    fitSoon();
}

void ChipView::setTopMargin(int margin)
{
    m_topMargin = margin;
    QMargins margins = contentsMargins();
    margins.setTop(margin);
    setViewportMargins(margins);
    fitSoon();
}

void ChipView::fitToWidth(int width)
{
    resize(width, height());
    fitHeight();
}

const TagItem& ChipView::tagAt(const QModelIndex& index) const
{
    return m_rows.rowAt(index)->tag();
}

QModelIndex ChipView::firstChipFrom(int y) const
{
    // The gap above a line counts as part of it.
    const QRect below(0, y + chipSpacing, 1, qMax(0, viewport()->height() - y));
    const ChipFlow::RowRange rows = flow().rowsOfLines(below);
    return rows.first < rows.last ? model()->index(rows.first, 0) : QModelIndex();
}

QRect ChipView::visualRect(const QModelIndex& index) const
{
    return flow().rect(index.isValid() ? index.row() : -1);
}

QModelIndex ChipView::indexAt(const QPoint& point) const
{
    const int row = flow().rowAt(point);
    return row < 0 ? QModelIndex() : model()->index(row, 0);
}

/// The view shows all of itself: it is the scroll area around it that has to move.
void ChipView::scrollTo(const QModelIndex& index, ScrollHint)
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
void ChipView::doItemsLayout()
{
    updateGeometries();
    if (isInView(viewport()))
        viewport()->update();
}

void ChipView::slotUpdateLayout()
{
    m_orderIsCurrent = true;
    emit m_rows.proxy()->layoutChanged();
    m_orderIsCurrent = false;
    // The base class waits with a timer of its own; thousands of sections would wait in one long list of timers.
    executeDelayedItemsLayout();
    fitHeight();
}

/// Brings the view to the height of its chips.
void ChipView::fitHeight()
{
    m_fitScheduled = false;
    const ChipFlow& chips = flow();
    const QRect last = chips.rect(chips.rowCount() - 1);
    const int height = last.y() + last.height() + m_topMargin + m_bottomPad;
    if (minimumHeight() != height || maximumHeight() != height)
        setFixedHeight(height);
    if (m_hovered.isValid())
        followPointerSoon();
    if (isInView(viewport()))
        viewport()->update();
}

/// Several changes in one turn of the event loop cost one fit; a hidden view is fitted when it is shown.
void ChipView::fitSoon()
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

void ChipView::fitNowOrWhenShown()
{
    if (isVisible())
        fitHeight();
}

bool ChipView::event(QEvent* event)
{
    if (isIdlePaintRequest(event, this))
        return true;
    const BusyScope busy(this);
    // While the base class gives the viewport its place it ignores a change of the view's height.
    if (event->type() == QEvent::Resize)
        fitHeight();
    return QListView::event(event);
}

bool ChipView::viewportEvent(QEvent* event)
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
    case QEvent::ToolTip:
        showToolTip(static_cast<QHelpEvent*>(event));
        return true;
    default:
        break;
    }
    return QListView::viewportEvent(event);
}

/// Of a chip that is cut because it is wider than the view.
void ChipView::showToolTip(const QHelpEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && visualRect(index).right() >= viewport()->width())
        QToolTip::showText(event->globalPos(), plainToolTip(tagAt(index).name), viewport());
    else
        QToolTip::hideText();
}

void ChipView::followPointerSoon()
{
    static bool isScheduled = false;
    if (std::exchange(isScheduled, true))
        return;
    const auto follow = [] {
        isScheduled = false;
        followPointer();
    };
    QMetaObject::invokeMethod(qApp, follow, Qt::QueuedConnection);
}

/// The chip whose menu is open stays as it is.
void ChipView::followPointer()
{
    if (QApplication::activePopupWidget())
        return;
    const QPoint pointer = QCursor::pos();
    const QWidget* under = QApplication::widgetAt(pointer);
    auto* view = under ? qobject_cast<ChipView*>(under->parentWidget()) : nullptr;
    if (view && view->viewport() == under)
        view->setHoveredIndex(view->indexAt(under->mapFromGlobal(pointer)));
    else if (hoveredView())
        hoveredView()->setHoveredIndex({});
}

void ChipView::setHoveredIndex(const QModelIndex& index)
{
    if (hoveredView() != this && index.isValid()) {
        if (hoveredView())
            hoveredView()->setHoveredIndex({});
        hoveredView() = this;
    }
    if (m_hovered == index)
        return;
    updateChip(m_hovered);
    m_hovered = index;
    updateChip(m_hovered);
}

void ChipView::updateChip(const QModelIndex& index)
{
    // To ask for the place of no chip would have all of them measured, before they have their final look.
    if (!index.isValid())
        return;
    // A chip is painted one pixel beyond its rectangle.
    viewport()->update(visualRect(index) + QMargins(0, 0, 1, 0));
}

void ChipView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    updateChip(previous);
    updateChip(current);
}

/// Keys alone move the page to the current chip, also when it is current already and out of sight.
void ChipView::keyPressEvent(QKeyEvent* event)
{
    const BusyScope busy(this);
    const QPersistentModelIndex before = currentIndex();
    QListView::keyPressEvent(event);
    if (busy.viewIsGone() || !currentIndex().isValid())
        return;
    const bool movesCursor = event->key() >= Qt::Key_Home && event->key() <= Qt::Key_PageDown;
    if (movesCursor || currentIndex() != before)
        scrollTo(currentIndex());
}

void ChipView::paintEvent(QPaintEvent* event)
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

void ChipView::paintChip(QPainter* painter, QStyleOptionViewItem option, const QModelIndex& index) const
{
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_MouseOver, m_hovered == index);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, hasFocus() && currentIndex() == index);
    itemDelegate(index)->paint(painter, option, index);
}

void ChipView::resizeEvent(QResizeEvent*)
{
    slotUpdateLayout();
}

void ChipView::showEvent(QShowEvent* event)
{
    slotUpdateLayout();
    fitHeight();
    QListView::showEvent(event);
}

/// There is nothing to scroll: all chips are shown. The base class would start a timer to ask for more rows, which for
/// thousands of sections is one long list of timers; this model has all its rows.
void ChipView::updateGeometries()
{
    horizontalScrollBar()->setRange(0, 0);
    verticalScrollBar()->setRange(0, 0);
}

QModelIndex ChipView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
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

void ChipView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command)
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

QRegion ChipView::visualRegionForSelection(const QItemSelection& selection) const
{
    QRegion region;
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            region += flow().rect(row);
    }
    return region;
}

void ChipView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>&)
{
    if (!m_widthsAreCurrent)
        return;
    int row = topLeft.row();
    for (const int width : chipWidths(row, bottomRight.row()))
        m_flow.setWidth(row++, width);
    fitSoon();
}
