// SPDX-License-Identifier: MIT
#include "taglist/tagreader.h"

#include <itagdataprovider.h>

#include <algorithm>
#include <utility>

TagReader::TagReader(QObject* owner, Follow follow)
    : m_owner(owner)
    , m_follow(std::move(follow))
{
}

TagReader::~TagReader() = default;

void TagReader::begin()
{
    if (m_depth++ == 0)
        m_connections = std::make_unique<Connections>();
}

QVector<TagItem> TagReader::read(const Providers& providers, const QString& filter)
{
    const QPointer<QObject> owner(m_owner);
    QVector<TagItem> items;
    items.reserve(providers.size());
    if (m_follow)
        m_connections->ofTag.reserve(m_connections->ofTag.size() + providers.size());
    for (auto it = providers.cbegin(); it != providers.cend(); ++it) {
        if (!it.value())
            continue;
        follow(*it.value(), it.key());
        auto item = readTagItem(it.value(), filter);
        if (!owner)
            return {};
        if (!item || item->id != it.key())
            drop(it.key());
        if (!item)
            continue;
        if (item->id != it.key())
            follow(*it.value(), item->id);
        items.append(std::move(*item));
    }
    if (!m_gone.isEmpty()) {
        const auto isGone = [this](const TagItem& item) { return m_gone.contains(item.id); };
        items.erase(std::remove_if(items.begin(), items.end(), isGone), items.end());
    }
    return items;
}

QMetaObject::Connection TagReader::takeConnection(const TagItem& item)
{
    if (!m_follow)
        return {};
    if (m_connections) {
        const auto found = m_connections->ofTag.find(item.id);
        if (found != m_connections->ofTag.end()) {
            QMetaObject::Connection connection = std::move(found->second);
            m_connections->ofTag.erase(found);
            return connection;
        }
    }
    return m_follow(*item.provider, item.id);
}

QSet<qint64> TagReader::end()
{
    if (--m_depth > 0)
        return {};
    const auto connections = std::exchange(m_connections, nullptr);
    for (const auto& [tag_id, unused] : connections->ofTag)
        QObject::disconnect(unused);
    m_gone.clear();
    return std::exchange(m_changed, {});
}

void TagReader::noteRemoved(const QVector<qint64>& tag_ids)
{
    if (isReading())
        m_gone.unite(QSet<qint64>(tag_ids.cbegin(), tag_ids.cend()));
}

void TagReader::noteAdded(const QVector<qint64>& tag_ids)
{
    for (const qint64 id : tag_ids)
        m_gone.remove(id);
}

void TagReader::follow(const ITagDataProvider& provider, qint64 tag_id)
{
    if (!m_follow)
        return;
    QMetaObject::Connection& connection = m_connections->ofTag[tag_id];
    // A reading around this one may follow the tag already.
    if (connection)
        QObject::disconnect(connection);
    connection = m_follow(provider, tag_id);
}

void TagReader::drop(qint64 tag_id)
{
    const auto found = m_connections->ofTag.find(tag_id);
    if (found == m_connections->ofTag.end())
        return;
    QObject::disconnect(found->second);
    m_connections->ofTag.erase(found);
}
