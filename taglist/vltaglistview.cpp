// SPDX-License-Identifier: MIT
#include "taglist/vltaglistview.h"

#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/initialletter.h"
#include "taglist/letterlabel.h"
#include "taglist/sortfilterproxymodel.h"
#include "taglist/tagdrag.h"
#include "taglist/taglistrow.h"
#include "widgets/inview.h"

#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <tagrecords.h>
#include <vleventtrack.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>

namespace {

constexpr int letterPixelSize = 12;
constexpr int doubleClickJoin = 1;  // how usage tracking names a double click on a chip

}  // namespace

VLTagListView::VLTagListView(QVector<TagItem> items, QWidget* parent, TagRows::Follow follow)
    : ChipView(
          parent, follow ? std::move(follow) : [this](const TagItem& item) { return followTag(item); })
    , m_letterLabel(
          new LetterLabel(this, [this] { return rows().count() > 0 ? tagAt(model()->index(0, 0)).name : QString(); }))
{
    setObjectName(QStringLiteral("tag_list_view"));
    QFont letterFont;
    letterFont.setPixelSize(letterPixelSize);
    m_letterLabel->setObjectName(QStringLiteral("tag_list_vew_char"));
    m_letterLabel->setFont(letterFont);
    m_letterLabel->hide();
    m_letterLabel->installEventFilter(this);
    setUp(std::move(items));
}

VLTagListView::~VLTagListView()
{
    if (!m_drag)
        return;
    // The drag's own event loop is on the stack and still needs the object.
    m_drag->setParent(nullptr);
    QDrag::cancel();
}

QMetaObject::Connection VLTagListView::followTag(const TagItem& item)
{
    return connect(item.provider.data(), &IDataProvider::signalUpdated, this, [this, id = item.id] { refreshTag(id); });
}

void VLTagListView::setMenuEnabled(bool enabled)
{
    m_menuEnabled = enabled;
}

void VLTagListView::setChipDragEnabled(bool enabled)
{
    m_chipDragEnabled = enabled;
}

void VLTagListView::setTrailingRow(bool kept)
{
    rows().setTrailingRow(kept);
}

void VLTagListView::setLetter(const QString& letter, int x, int y)
{
    m_letterLabel->setText(letter);
    m_letterLabel->move(x, y);
    m_letterLabel->show();
    rows().proxy()->setSortBySearch(false);
    if (m_letterLabel->isHalfCharacter())
        repaintLetterWithTheFirstName();
}

void VLTagListView::repaintLetterWithTheFirstName()
{
    const auto repaint = [this] { m_letterLabel->update(); };
    const QAbstractItemModel* shown = model();
    connect(shown, &QAbstractItemModel::rowsInserted, m_letterLabel, repaint);
    connect(shown, &QAbstractItemModel::rowsRemoved, m_letterLabel, repaint);
    connect(shown, &QAbstractItemModel::dataChanged, m_letterLabel, repaint);
    connect(shown, &QAbstractItemModel::layoutChanged, m_letterLabel, repaint);
    connect(shown, &QAbstractItemModel::modelReset, m_letterLabel, repaint);
}

QString VLTagListView::letter() const
{
    return m_letterLabel->text();
}

void VLTagListView::setSearchText(const QString& text)
{
    rows().proxy()->setSearchText(text);
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

void VLTagListView::addTags(QVector<TagItem> items)
{
    rows().add(std::move(items));
    fitNowOrWhenShown();
}

void VLTagListView::removeTags(const QVector<qint64>& tag_ids)
{
    if (rows().count() > 0) {
        rows().remove(tag_ids);
        fitNowOrWhenShown();
    }
    if (rows().count() == 0)
        emit signalEmpty();
}

void VLTagListView::removeAllRows()
{
    rows().clear();
    fitNowOrWhenShown();
}

void VLTagListView::revealTag(qint64 tag_id)
{
    const TagListRow* row = rows().rowOfTag(tag_id);
    if (!row)
        return;
    const QModelIndex index = rows().indexOf(row);
    setCurrentIndex(index);
    scrollTo(index);
}

bool VLTagListView::refreshTag(qint64 tag_id)
{
    const BusyScope busy(this);
    const TagListRow* shown = rows().rowOfTag(tag_id);
    if (!shown)
        return false;
    m_refreshes.begin(tag_id);
    const std::optional<TagItem> item = readTagItem(shown->tag().provider);
    if (busy.viewIsGone() || !m_refreshes.end() || !item)
        return true;
    // The host may have taken the tag away from inside the reading.
    TagListRow* row = rows().rowOfTag(tag_id);
    if (!row)
        return true;
    if (!rows().proxy()->isSortedBySearch() && initialLetter(item->name) != letter()) {
        emit signalCharNoMatch({tag_id});
        if (!busy.viewIsGone())
            emit signTagUpdated(tag_id);
        if (!busy.viewIsGone())
            slotDelItem(tag_id);
    } else {
        TagItem refreshed = *item;
        refreshed.id = tag_id;
        rows().update(row, refreshed);
        fitSoon();
        emit signTagUpdated(tag_id);
    }
    return true;
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
        addTags(std::move(items));
}

void VLTagListView::slotRemoveCallBack(QVector<qint64> tag_ids)
{
    const auto isUnknown = [this](qint64 id) { return !rows().contains(id); };
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

bool VLTagListView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_letterLabel)
        return isIdlePaintRequest(event, m_letterLabel);
    return ChipView::eventFilter(watched, event);
}

void VLTagListView::mousePressEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        m_pressPosition = event->pos();
    ChipView::mousePressEvent(event);
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
    ChipView::mouseReleaseEvent(event);
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
        ChipView::mouseDoubleClickEvent(event);
}

/// The menu of the mouse opens when its button is released; this is for the keyboard.
void VLTagListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        askForMenuByKey();
}

/// Not every platform makes a context menu event of this key.
void VLTagListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        askForMenuByKey();
    else
        ChipView::keyPressEvent(event);
}

void VLTagListView::askForMenuByKey()
{
    if (!m_menuEnabled || !currentIndex().isValid())
        return;
    scrollTo(currentIndex());
    const TagItem tag = tagAt(currentIndex());
    const QRect chip = visualRect(currentIndex());
    emit signPopMenuByKey(tag.id, tag.name, {viewport()->mapToGlobal(chip.topLeft()), chip.size()});
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
    followPointerSoon();
}
