// SPDX-License-Identifier: MIT
#include "host/library/memory/librarymanager.h"

#include "host/library/memory/librarygroup.h"
#include "host/library/memory/librarymemory.h"

LibraryManager::LibraryManager(const std::shared_ptr<const LibraryMemory>& view)
    : m_view(view)
{
}

LibraryManager::~LibraryManager() = default;

QSharedPointer<ITagGroupDataProvider> LibraryManager::tagGroup(qint64 g_id) const
{
    return LibraryGroup::of(m_view->group(g_id), m_view);
}

QSharedPointer<ITagGroupDataProvider> LibraryManager::tagGroupByName(const QString& name) const
{
    return LibraryGroup::of(m_view->groupByName(name), m_view);
}

int LibraryManager::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    out.clear();
    for (const auto& group : m_view->userGroups())
        out.append(LibraryGroup::of(group, m_view));
    return out.size();
}
