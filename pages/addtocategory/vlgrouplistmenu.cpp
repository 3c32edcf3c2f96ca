// SPDX-License-Identifier: MIT
#include "pages/addtocategory/vlgrouplistmenu.h"

#include "widgets/plaintooltip.h"

#include <vleventtrack.h>
#include <vlskinsetting.h>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QToolTip>

namespace {
// Logical pixels.
constexpr int rowHeight = 30;
constexpr int fullHeight = 300;

constexpr int rowsOfFullHeight = 11;
}  // namespace

VLGroupListMenu::VLGroupListMenu(QWidget* parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("group_list_menu"));
    VLSkinSetting::GetInstance()->SetWidgetStyleSheetWithQssName(this, QStringLiteral("tagmanager"));
    setAttribute(Qt::WA_TranslucentBackground);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this, &VLGroupListMenu::pick);
}

void VLGroupListMenu::setHiddenBottom(int pixels)
{
    setViewportMargins(0, 0, 0, pixels);
}

void VLGroupListMenu::slotAddItem(qint64 id, QString name)
{
    if (m_knownIds.contains(id))
        return;
    auto* item = new QListWidgetItem(name);
    item->setData(Qt::UserRole, id);
    // Without a width of its own a row is as wide as the list, so that a long name is elided.
    item->setSizeHint(QSize(1, rowHeight));
    insertItem(count(), item);
    m_ids.append(id);
    m_knownIds.insert(id);
}

void VLGroupListMenu::slotRemoveItem(qint64 id)
{
    const int row = m_ids.indexOf(id);
    if (row < 0)
        return;
    delete takeItem(row);
    m_ids.remove(row);
    m_knownIds.remove(id);
    setFixedHeight(count() < rowsOfFullHeight ? count() * rowHeight : fullHeight);
}

void VLGroupListMenu::slotUpdateItem(qint64 id, QString name)
{
    if (QListWidgetItem* renamed = item(m_ids.indexOf(id)))
        renamed->setText(name);
}

void VLGroupListMenu::showEvent(QShowEvent* event)
{
    QListWidget::showEvent(event);
    setFocus(Qt::PopupFocusReason);
    if (const auto* menu = qobject_cast<QMenu*>(parentWidget()))
        connect(menu, &QMenu::hovered, this, &VLGroupListMenu::highlightFirst, Qt::UniqueConnection);
}

void VLGroupListMenu::hideEvent(QHideEvent* event)
{
    QListWidget::hideEvent(event);
    clearSelection();
}

void VLGroupListMenu::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Left:
    case Qt::Key_Right:
        event->ignore();
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Space:
        if (hasHighlight())
            pick(currentItem());
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!hasHighlight()) {
            setCurrentRow(event->key() == Qt::Key_Down ? 0 : count() - 1);
            break;
        }
        Q_FALLTHROUGH();
    default:
        QListWidget::keyPressEvent(event);
    }
}

/// A row whose name is elided shows all of it in a tool tip.
bool VLGroupListMenu::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QListWidget::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QListWidgetItem* row = itemAt(help->pos());
    if (row && isElided(row))
        QToolTip::showText(help->globalPos(), plainToolTip(row->text()), viewport());
    else
        QToolTip::hideText();
    return true;
}

bool VLGroupListMenu::isElided(const QListWidgetItem* row) const
{
    QStyleOptionViewItem option = viewOptions();
    option.rect = visualItemRect(row);
    option.features |= QStyleOptionViewItem::HasDisplay;
    option.text = row->text();
    const int room = style()->subElementRect(QStyle::SE_ItemViewItemText, &option, this).width();
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, this) + 1;
    return option.fontMetrics.horizontalAdvance(row->text()) > room - 2 * margin;
}

void VLGroupListMenu::pick(QListWidgetItem* item)
{
    const qint64 id = item->data(Qt::UserRole).toInt();
    const QPointer<VLGroupListMenu> self(this);
    m_picking = true;
    VlEventTrack::GetInstance()->SendBClickLabelMenu(tr("Add to Category"), item->text());
    // This list may have been taken from its window in the meantime, and is then deleted from the event loop.
    if (self)
        emit signClicked(id);
    if (self)
        m_picking = false;
}

void VLGroupListMenu::highlightFirst()
{
    if (!underMouse() && !hasHighlight())
        setCurrentRow(0);
}

bool VLGroupListMenu::hasHighlight() const
{
    return currentItem() && currentItem()->isSelected();
}
