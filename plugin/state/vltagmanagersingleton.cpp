// SPDX-License-Identifier: MIT
#include "plugin/state/vltagmanagersingleton.h"

#include <ilibrarydataprovider.h>
#include <iresponseinfo.h>
#include <itagaction.h>
#include <itagdataprovider.h>
#include <itaggroupaction.h>
#include <itaggroupdataprovider.h>
#include <itagmanagerdataprovider.h>

VLTagManagerSingleton::VLTagManagerSingleton() = default;
VLTagManagerSingleton::~VLTagManagerSingleton() = default;

VLTagManagerSingleton* VLTagManagerSingleton::instance()
{
    static VLTagManagerSingleton singleton;
    return &singleton;
}

void VLTagManagerSingleton::setDataProvider(const QSharedPointer<ILibraryDataProvider>& provider)
{
    // The argument may be a reference to what clear() drops.
    const QSharedPointer<ILibraryDataProvider> next = provider;
    clear();
    m_dataProvider = next;
}

void VLTagManagerSingleton::clear()
{
    // Taken out first: a host object that is destroyed here may ask the singleton from its destructor.
    const auto dataProvider = std::exchange(m_dataProvider, {});
    const auto tagManagerProvider = std::exchange(m_tagManagerProvider, {});
    const auto allTagsProvider = std::exchange(m_allTagsProvider, {});
}

void VLTagManagerSingleton::setTagColorProvider(ITagColorProvider* provider)
{
    m_colorProvider = provider;
}

const QSharedPointer<ITagManagerDataProvider>& VLTagManagerSingleton::tagManagerProvider()
{
    if (!m_tagManagerProvider && m_dataProvider) {
        // The host may replace the library from inside the call.
        const auto library = m_dataProvider;
        const auto manager = library->tagManagerDataProvider();
        if (m_dataProvider == library)
            m_tagManagerProvider = manager;
    }
    return m_tagManagerProvider;
}

const QSharedPointer<ITagGroupDataProvider>& VLTagManagerSingleton::allTagsProvider()
{
    if (!m_allTagsProvider && tagManagerProvider()) {
        const auto manager = m_tagManagerProvider;
        const auto allTags = manager->tagGroup(taggroupid::allTags);
        if (m_tagManagerProvider == manager)
            m_allTagsProvider = allTags;
    }
    return m_allTagsProvider;
}

QSharedPointer<ITagGroupDataProvider> VLTagManagerSingleton::rootGroupProvider()
{
    const auto manager = tagManagerProvider();
    return manager ? manager->tagGroup(taggroupid::fixed) : nullptr;
}

QSharedPointer<ITagGroupDataProvider> VLTagManagerSingleton::favoriteTagsProvider()
{
    const auto manager = tagManagerProvider();
    return manager ? manager->tagGroup(taggroupid::favorites) : nullptr;
}

QSharedPointer<ITagGroupDataProvider> VLTagManagerSingleton::tagGroupProvider(qint64 g_id) const
{
    const auto manager = m_tagManagerProvider;
    return manager ? manager->tagGroup(g_id) : nullptr;
}

QSharedPointer<ITagGroupDataProvider> VLTagManagerSingleton::tagGroupByName(const QString& name) const
{
    const auto manager = m_tagManagerProvider;
    return manager ? manager->tagGroupByName(name) : nullptr;
}

int VLTagManagerSingleton::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out)
{
    const auto manager = tagManagerProvider();
    return manager ? manager->tagGroups(out) : 0;
}

QSharedPointer<ITagDataProvider> VLTagManagerSingleton::tagProvider(qint64 t_id)
{
    if (!m_tagManagerProvider)
        return nullptr;
    const auto allTags = allTagsProvider();
    if (!allTags)
        return nullptr;
    QHash<qint64, QSharedPointer<ITagDataProvider>> found;
    allTags->tagsByIds({t_id}, &found);
    return found.isEmpty() ? nullptr : *found.cbegin();
}

bool VLTagManagerSingleton::isFavoriteTag(qint64 t_id)
{
    const auto favorites = favoriteTagsProvider();
    if (!favorites)
        return false;
    QHash<qint64, QSharedPointer<ITagDataProvider>> found;
    favorites->tagsByIds({t_id}, &found);
    return found.contains(t_id);
}

QSharedPointer<ITagAction> VLTagManagerSingleton::tagAction() const
{
    const auto library = m_dataProvider;
    return library ? library->tagAction() : nullptr;
}

QSharedPointer<ITagGroupAction> VLTagManagerSingleton::tagGroupAction() const
{
    const auto library = m_dataProvider;
    return library ? library->tagGroupAction() : nullptr;
}

bool VLTagManagerSingleton::isResponseSucceeded(const QSharedPointer<const IResponseInfo>& response) const
{
    if (!response || response->status() != 0)
        return false;
    QVector<QSharedPointer<const ITagInfo>> tags;
    QVector<QSharedPointer<const ITagGroupInfo>> groups;
    QVector<QSharedPointer<const QString>> files;
    response->rejectedTags(tags);
    response->rejectedGroups(groups);
    response->rejectedFiles(files);
    return tags.isEmpty() && groups.isEmpty() && files.isEmpty();
}

const QVector<TagColorEntry>& VLTagManagerSingleton::tagColors() const
{
    static const QVector<TagColorEntry> none;
    return m_colorProvider ? m_colorProvider->colorEntries() : none;
}

QColor VLTagManagerSingleton::tagColor(int index) const
{
    QColor color;
    if (m_colorProvider)
        m_colorProvider->color(index, color);
    return color;
}
