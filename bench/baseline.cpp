// SPDX-License-Identifier: MIT
#include "bench/baseline.h"

#include "bench/chipdelegate.h"
#include "tests/support/memoryhost.h"

#include <QListView>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int spacing = 16;
const QSize windowSize(1100, 700);
/// Where the tag manager shows its chips in a window of that size: both sides paint the same area.
const QMargins listMargins(46, 191, 0, 0);

void assign(QStandardItem* item, const TagItem& tag)
{
    item->setText(tag.name);
    item->setData(QVariant::fromValue(tag), Qt::UserRole);
}

}  // namespace

bench::Baseline::Baseline(MemoryHost* host)
    : m_host(host)
{
}

bench::Baseline::~Baseline() = default;

void bench::Baseline::open()
{
    const auto tags = m_host->group(MemoryHost::AllTags);
    QHash<qint64, QSharedPointer<ITagDataProvider>> providers;
    tags->tags(&providers);
    append(providers);
    m_proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_proxy.setSourceModel(&m_model);
    m_proxy.sort(0);
    QObject::connect(tags.data(), &ITagGroupDataProvider::signalAddTags, &m_model,
                     [this](const QVector<qint64>& tag_ids) { addTags(tag_ids); });
    QObject::connect(tags.data(), &ITagGroupDataProvider::signalRemoveTags, &m_model,
                     [this](const QVector<qint64>& tag_ids) { removeTags(tag_ids); });
    makeView();
    m_window->show();
}

void bench::Baseline::makeView()
{
    m_window = std::make_unique<QWidget>();
    m_window->resize(windowSize);
    m_view = new QListView(m_window.get());
    auto* layout = new QVBoxLayout(m_window.get());
    layout->setContentsMargins(listMargins);
    layout->addWidget(m_view);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setViewMode(QListView::IconMode);
    m_view->setFlow(QListView::LeftToRight);
    m_view->setWrapping(true);
    m_view->setResizeMode(QListView::Adjust);
    m_view->setLayoutMode(QListView::SinglePass);
    m_view->setSpacing(spacing);
    m_view->setItemDelegate(new ChipDelegate(m_view));
    m_view->setModel(&m_proxy);
}

QWidget* bench::Baseline::window() const
{
    return m_window.get();
}

QScrollBar* bench::Baseline::scrollBar() const
{
    return m_view->verticalScrollBar();
}

QWidget* bench::Baseline::viewport() const
{
    return m_view->viewport();
}

/// The view would wait a tenth of a second before it lays out anew; nobody measures its patience.
void bench::Baseline::setWidth(int width)
{
    m_window->resize(width, windowSize.height());
    m_view->doItemsLayout();
}

void bench::Baseline::search(const QString& text)
{
    m_proxy.setFilterFixedString(text);
}

void bench::Baseline::follow(qint64 tag_id)
{
    const auto tag = readTagItem(m_host->tag(tag_id));
    QStandardItem* item = m_items.value(tag_id);
    if (tag->name == item->text())
        item->setData(QVariant::fromValue(*tag), Qt::UserRole);
    else
        assign(item, *tag);
}

int bench::Baseline::shownTags() const
{
    return m_proxy.rowCount();
}

void bench::Baseline::append(const QHash<qint64, QSharedPointer<ITagDataProvider>>& providers)
{
    QList<QStandardItem*> items;
    items.reserve(providers.size());
    for (const auto& provider : providers) {
        const auto tag = readTagItem(provider);
        auto* item = new QStandardItem;
        assign(item, *tag);
        m_items.insert(tag->id, item);
        items.append(item);
    }
    m_model.invisibleRootItem()->appendRows(items);
}

void bench::Baseline::addTags(const QVector<qint64>& tag_ids)
{
    QHash<qint64, QSharedPointer<ITagDataProvider>> providers;
    m_host->group(MemoryHost::AllTags)->tagsByIds(tag_ids, &providers);
    append(providers);
}

void bench::Baseline::removeTags(const QVector<qint64>& tag_ids)
{
    for (const qint64 id : tag_ids)
        m_model.removeRow(m_items.take(id)->row());
}
