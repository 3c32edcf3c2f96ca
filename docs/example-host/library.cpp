// SPDX-License-Identifier: MIT
#include "library.h"

#include "records.h"
#include "requests.h"

Tag::Tag(qint64 id, const QString& name, int color)
    : m_id(id)
    , m_name(name)
    , m_color(color)
{
}

int Tag::fileCount(int) const
{
    return 0;
}

QString Tag::name() const
{
    return m_name;
}

QSharedPointer<const ITagInfo> Tag::tagInfo() const
{
    return QSharedPointer<TagRecord>::create(m_id, m_name, m_color);
}

Category::Category(qint64 id, const QString& name, const QSharedPointer<const TagTable>& tags)
    : m_id(id)
    , m_name(name)
    , m_tags(tags)
{
}

int Category::tagCount(int) const
{
    return m_members.size();
}

QString Category::groupName() const
{
    return m_name;
}

QSharedPointer<const ITagGroupInfo> Category::groupInfo() const
{
    return QSharedPointer<CategoryRecord>::create(m_id, m_name);
}

qint64 Category::groupId() const
{
    return m_id;
}

int Category::tags(TagsById* out) const
{
    return tagsByIds(m_members.values().toVector(), out);
}

int Category::tagsByIds(const QVector<qint64>& ids, TagsById* out) const
{
    int found = 0;
    for (const qint64 id : ids) {
        if (!m_members.contains(id) || !m_tags->contains(id))
            continue;
        out->insert(id, m_tags->value(id));
        ++found;
    }
    return found;
}

QSharedPointer<ITagDataProvider> Category::tagByName(const QString& name) const
{
    for (const qint64 id : m_members) {
        if (const auto tag = m_tags->value(id); tag && tag->m_name == name)
            return tag;
    }
    return {};
}

void Category::announceChanges()
{
    const auto added = m_members - m_announced;
    const auto removed = m_announced - m_members;
    m_announced = m_members;
    if (!removed.isEmpty())
        emit signalRemoveTags(removed.values().toVector());
    if (!added.isEmpty())
        emit signalAddTags(added.values().toVector());
    if (!added.isEmpty() || !removed.isEmpty())
        emit signalUpdated();
}

TagLibrary::TagLibrary()
{
    const auto reserve = [this](qint64 id, const QString& name) {
        m_categories.insert(id, QSharedPointer<Category>::create(id, name, m_tags));
    };
    reserve(taggroupid::allTags, QStringLiteral("All Tags"));
    reserve(taggroupid::fixed, QStringLiteral("Uncategorized"));
    reserve(taggroupid::favorites, QStringLiteral("Favorite Tags"));
}

QSharedPointer<ITagGroupDataProvider> TagLibrary::tagGroup(qint64 g_id) const
{
    return m_categories.value(g_id);
}

QSharedPointer<ITagGroupDataProvider> TagLibrary::tagGroupByName(const QString& name) const
{
    for (const auto& category : m_categories) {
        if (category->m_name == name)
            return category;
    }
    return {};
}

int TagLibrary::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    for (auto it = m_categories.lowerBound(taggroupid::firstUser); it != m_categories.end(); ++it)
        out.append(*it);
    return out.size();
}

qint64 TagLibrary::addTag(const QString& name, int color)
{
    const qint64 id = ++m_lastId;
    m_tags->insert(id, QSharedPointer<Tag>::create(id, name, color));
    return id;
}

qint64 TagLibrary::addCategory(const QString& name)
{
    const qint64 id = ++m_lastId;
    m_categories.insert(id, QSharedPointer<Category>::create(id, name, m_tags));
    emit signalAddTagGroups({id});
    return id;
}

void TagLibrary::removeCategory(qint64 id)
{
    const auto kept = m_categories.take(id);
    refresh();
    emit signalRemoveTagGroups({id});
}

void TagLibrary::refresh()
{
    const auto ids = m_tags->keys();
    const QSet<qint64> all(ids.begin(), ids.end());
    QSet<qint64> free = all;
    const auto categories = m_categories;
    for (auto it = categories.lowerBound(taggroupid::favorites); it != categories.end(); ++it) {
        (*it)->m_members &= all;
        if (it.key() >= taggroupid::firstUser)
            free -= (*it)->m_members;
    }
    categories[taggroupid::fixed]->m_members = free;
    categories[taggroupid::allTags]->m_members = all;
    for (const auto& category : categories)
        category->announceChanges();
}

Library::Library(const QSharedPointer<TagLibrary>& tags)
    : m_tags(tags)
    , m_tagRequests(QSharedPointer<TagRequests>::create(tags))
    , m_categoryRequests(QSharedPointer<CategoryRequests>::create(tags))
{
}

QSharedPointer<ITagAction> Library::tagAction() const
{
    return m_tagRequests;
}

QSharedPointer<ITagGroupAction> Library::tagGroupAction() const
{
    return m_categoryRequests;
}

QSharedPointer<ITagManagerDataProvider> Library::tagManagerDataProvider() const
{
    return m_tags;
}
