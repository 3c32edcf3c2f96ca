// SPDX-License-Identifier: MIT
#include "taglist/vltaggrouplistview.h"

#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/tagcontextmenu.h"
#include "taglist/vltagdelegate.h"
#include "taglist/vltaglistview.h"
#include "widgets/vltallboxlayout.h"

#include <itagdataprovider.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

// Of a section, in logical pixels.
constexpr int sectionBottomPad = 15;
constexpr int sectionTopMargin = 14;
constexpr int letterLeft = 18;

/// A list that may wait until it is shown reads so many tags at once all the same: nobody notices them.
constexpr int readAtOnceLimit = 500;

auto askFor(const QVector<qint64>& tag_ids)
{
    return
        [tag_ids](const ITagGroupDataProvider& group, TagReader::Providers* found) { group.tagsByIds(tag_ids, found); };
}

}  // namespace

VLTagGroupListView::VLTagGroupListView(QWidget* parent, bool drag)
    : QScrollArea(parent)
    , m_layout(setUpColumn())
    , m_sections(m_layout, [this](const QString& letter,
                                  QVector<TagItem> items) { return makeSection(letter, std::move(items)); })
    , m_requests(VLTagManagerSingleton::instance()->tagAction())
    , m_drag(drag)
    , m_reader(this, [this](const ITagDataProvider& provider, qint64 tag_id) {
        return connect(&provider, &IDataProvider::signalUpdated, this, [this, tag_id] { refresh(tag_id); });
    })
{
    auto* state = VLTagManagerSingleton::instance();
    connect(state, &VLTagManagerSingleton::signalAddGroupAction, this, &VLTagGroupListView::slotAddGroupAction);
    connect(state, &VLTagManagerSingleton::signalRemoveGroupAction, this, &VLTagGroupListView::slotRemoveGroupAction);
    connect(state, &VLTagManagerSingleton::signalUpdateGroupAction, this, &VLTagGroupListView::slotUpdateGroupAction);
    setStyleSheet(QStringLiteral("border:10px;"));
}

VLTagGroupListView::~VLTagGroupListView() = default;

/// The sections lie in the layout of the view itself, above the empty content widget of the scroll area.
QVBoxLayout* VLTagGroupListView::setUpColumn()
{
    setObjectName(QStringLiteral("tag_group_list_view"));
    setFocusPolicy(Qt::ClickFocus);
    setWidget(new QWidget);
    setWidgetResizable(true);
    for (QWidget* background : {static_cast<QWidget*>(this), viewport(), widget()})
        background->setAttribute(Qt::WA_StaticContents);
    setObjectName(QStringLiteral("tag_group_widget"));
    auto* layout = new VLTallBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
    layout->setAlignment(Qt::AlignTop);
    return layout;
}

void VLTagGroupListView::setDataProvider(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    m_shown = Shown::Letters;
    const QPointer<VLTagGroupListView> self(this);
    replaceProvider(provider);
    if (!self)
        return;
    const auto shown = m_provider;
    const bool waits = m_readWhenShown && !isVisible() && shown && shown->tagCount(1) > readAtOnceLimit;
    if (!self || m_provider != shown)
        return;
    if (waits)
        m_readPending = true;
    else
        load({});
}

void VLTagGroupListView::setReadWhenShown()
{
    m_readWhenShown = true;
}

void VLTagGroupListView::setSearchProvider(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    m_shown = Shown::Results;
    m_reader.setFollow({});
    replaceProvider(provider);
}

void VLTagGroupListView::replaceProvider(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    const QSharedPointer<ITagGroupDataProvider> next = provider;
    clear();
    if (m_provider)
        disconnect(m_provider.data(), nullptr, this, nullptr);
    m_provider = next;
    if (m_provider) {
        connect(m_provider.data(), &ITagGroupDataProvider::signalAddTags, this,
                &VLTagGroupListView::slotAddTagsCallBack);
        connect(m_provider.data(), &ITagGroupDataProvider::signalRemoveTags, this,
                &VLTagGroupListView::slotRemoveTagsCallBack);
    }
    const QPointer<VLTagGroupListView> self(this);
    if (m_menu)
        m_menu->close();
    else
        makeMenu();
    const bool inCategory = next && next->groupId() >= taggroupid::firstUser;
    if (self && m_provider == next && m_menu)
        m_menu->arrange(inCategory);
}

void VLTagGroupListView::reload(const QString& filter)
{
    clear();
    load(filter);
}

void VLTagGroupListView::refreshResult(qint64 tag_id)
{
    refresh(tag_id);
}

void VLTagGroupListView::refresh(qint64 tag_id)
{
    VLTagListView* section = m_sections.lastSectionOf(tag_id);
    if ((section && section->refreshTag(tag_id)) || (m_results && m_results->refreshTag(tag_id)))
        return;
    if (m_reader.isReading())
        m_reader.noteChanged(tag_id);
}

bool VLTagGroupListView::showsTags() const
{
    return m_readPending || !m_sections.isEmpty() || (m_results && m_results->model()->rowCount() > 0);
}

VLTagListView* VLTagGroupListView::listOf(qint64 tag_id) const
{
    VLTagListView* section = m_sections.lastSectionOf(tag_id);
    if (section && section->holdsTag(tag_id))
        return section;
    return m_results && m_results->holdsTag(tag_id) ? m_results : nullptr;
}

QVector<qint64> VLTagGroupListView::resultIds(int limit) const
{
    const int count = m_results ? qMin(m_results->model()->rowCount(), limit) : 0;
    QVector<qint64> ids;
    for (int row = 0; row < count; ++row)
        ids.append(m_results->tagAt(m_results->model()->index(row, 0)).id);
    return ids;
}

void VLTagGroupListView::setChipDragEnabled(bool enabled)
{
    m_drag = enabled;
    for (VLTagListView* list : findChildren<VLTagListView*>())
        list->setChipDragEnabled(enabled);
}

void VLTagGroupListView::clear()
{
    m_readPending = false;
    m_sections.clear();
    m_filter.clear();
    if (!m_results)
        return;
    m_layout->removeWidget(m_results);
    m_results->hide();
    m_results->removeAllRows();
}

void VLTagGroupListView::load(const QString& filter)
{
    m_filter = filter;
    const auto provider = m_provider;
    if (!provider || (filter.isEmpty() && m_shown == Shown::Results))
        return;
    const auto ask = [](const ITagGroupDataProvider& group, TagReader::Providers* found) {
        if (group.tags(found) == 0)
            found->clear();
    };
    // From inside the reading the host may have made the list show something else.
    readTags(ask, filter, [this, filter](QVector<TagItem> items) {
        if (m_filter == filter)
            showTags(std::move(items));
    });
}

/// Nothing is shown when the list has another provider after the reading, or is gone.
void VLTagGroupListView::readTags(const Ask& ask, const QString& filter, const Show& show)
{
    const QPointer<VLTagGroupListView> self(this);
    const auto provider = m_provider;
    m_reader.begin();
    TagReader::Providers providers;
    ask(*provider, &providers);
    if (!self)
        return;
    QVector<TagItem> items = m_reader.read(providers, filter);
    if (!self)
        return;
    if (m_provider == provider)
        show(std::move(items));
    const QSet<qint64> changed = m_reader.end();
    for (const qint64 id : changed) {
        if (self)
            refresh(id);
    }
}

/// In letter sections, or as results of the search.
void VLTagGroupListView::showTags(QVector<TagItem> items)
{
    if (!m_filter.isEmpty())
        showResults(std::move(items));
    else if (m_shown == Shown::Letters)
        m_sections.add(std::move(items));
}

void VLTagGroupListView::showResults(QVector<TagItem> items)
{
    if (!m_results)
        m_results = makeResultList();
    m_results->setSearchText(m_filter);
    m_results->addTags(std::move(items));
    giveRoom(m_results);
    m_layout->addWidget(m_results);
    m_results->show();
}

VLTagListView* VLTagGroupListView::makeResultList()
{
    auto* list = new VLTagListView({}, this, followByOwner());
    configureList(list);
    connect(list, &VLTagListView::signCheckTagLinkFile, this, &VLTagGroupListView::resultActivated);
    list->setTrailingRow(false);
    return list;
}

/// Each row takes over the connection that was made before its tag was read.
TagRows::Follow VLTagGroupListView::followByOwner()
{
    return [this](const TagItem& item) { return m_reader.takeConnection(item); };
}

VLTagListView* VLTagGroupListView::makeSection(const QString& letter, QVector<TagItem> items)
{
    auto* section = new VLTagListView(std::move(items), this, followByOwner());
    configureList(section);
    section->setLetter(letter, letterLeft, 0);
    connect(section, &VLTagListView::signCheckTagLinkFile, this, &VLTagGroupListView::slotCheckTagLinkFile);
    connect(section, &VLTagListView::signalEmpty, this, [this, section] { removeSection(section); });
    connect(section, &VLTagListView::signalCharNoMatch, this, &VLTagGroupListView::slotTagUpdateNoMatch);
    giveRoom(section);
    return section;
}

/// At its final width from the start, so that its chips are laid out once. In a list that is shown at its final height,
/// too: the list below would stand on the new one until the next layout.
void VLTagGroupListView::giveRoom(VLTagListView* list)
{
    if (isVisible())
        list->fitToWidth(width());
    else
        list->resize(width(), list->height());
}

void VLTagGroupListView::configureList(VLTagListView* list)
{
    list->setBottomPad(sectionBottomPad);
    list->setGroupProvider(m_provider, VLTagListView::Following::Owner);
    list->setCountShown(true);
    list->setMenuEnabled(true);
    list->setChipDragEnabled(m_drag);
    list->setTopMargin(sectionTopMargin);
    list->setItemDelegate(new VLTagDelegate(list));
    connect(list, &VLTagListView::signPopMenu, this, &VLTagGroupListView::slotPopMenu);
    connect(list, &VLTagListView::signPopMenuByKey, this, &VLTagGroupListView::openMenu);
    connect(list, &VLTagListView::signTagUpdated, this, &VLTagGroupListView::tagUpdated);
    connect(list, &VLTagListView::signTagUpdated, this, &VLTagGroupListView::slotTagProviderUpdate);
}

void VLTagGroupListView::removeSection(VLTagListView* section)
{
    if (!m_sections.holds(section))
        return;
    m_sections.removeSection(section);
    if (m_sections.isEmpty())
        emit signalEmpty();
}

void VLTagGroupListView::slotAddTagsCallBack(QVector<qint64> tag_ids)
{
    if (!m_provider || tag_ids.isEmpty())
        return;
    m_reader.noteAdded(tag_ids);
    const QPointer<VLTagGroupListView> self(this);
    if (!m_readPending)
        showAdded(tag_ids);
    if (!self)
        return;
    emit signalAddTag(tag_ids.size());
    if (self)
        emit signalClosePopup();
}

void VLTagGroupListView::showAdded(const QVector<qint64>& tag_ids)
{
    const QString filter = m_filter;
    if (filter.isEmpty() && m_shown == Shown::Results)
        return;
    // A search that began meanwhile has found them by itself.
    readTags(askFor(tag_ids), filter, [this, filter](QVector<TagItem> items) {
        if (m_filter == filter)
            showTags(std::move(items));
    });
}

void VLTagGroupListView::slotRemoveTagsCallBack(QVector<qint64> tag_ids)
{
    m_reader.noteRemoved(tag_ids);
    const QPointer<VLTagGroupListView> self(this);
    emit signalRemoveTag(tag_ids.size());
    if (!self)
        return;
    if (m_results)
        m_results->slotRemoveCallBack(tag_ids);
    if (m_sections.isEmpty())
        return;
    m_sections.removeTags(tag_ids);
    if (m_sections.isEmpty())
        emit signalEmpty();
}

void VLTagGroupListView::slotTagUpdateNoMatch(QVector<qint64> tag_ids)
{
    if (!m_provider || tag_ids.isEmpty())
        return;
    readTags(askFor(tag_ids), {}, [this, tag_ids](QVector<TagItem> items) {
        m_sections.forget(tag_ids);
        m_sections.add(std::move(items));
    });
}

void VLTagGroupListView::slotUiRemoveTagListView()
{
    if (auto* section = qobject_cast<VLTagListView*>(sender()))
        removeSection(section);
}

void VLTagGroupListView::slotTagProviderUpdate()
{
    emit signalClosePopup();
}

void VLTagGroupListView::showEvent(QShowEvent* event)
{
    QScrollArea::showEvent(event);
    // Not from in here: the host may delete the window from inside the reading.
    if (m_readPending)
        QMetaObject::invokeMethod(this, &VLTagGroupListView::readPending, Qt::QueuedConnection);
}

void VLTagGroupListView::readPending()
{
    if (std::exchange(m_readPending, false))
        load({});
}

/// The area around it scrolls.
void VLTagGroupListView::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}
