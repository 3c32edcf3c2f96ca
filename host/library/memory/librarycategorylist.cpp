// SPDX-License-Identifier: MIT
#include "host/library/memory/librarycategorylist.h"

#include "host/library/memory/librarycategory.h"
#include "host/library/memory/librarymemory.h"

LibraryCategoryList::LibraryCategoryList(const std::shared_ptr<const LibraryMemory>& view)
    : m_view(view)
{
}

LibraryCategoryList::~LibraryCategoryList() = default;

QSharedPointer<ITagGroupDataProvider> LibraryCategoryList::tagGroup(qint64 g_id) const
{
    return LibraryCategory::of(m_view->category(g_id), m_view);
}

QSharedPointer<ITagGroupDataProvider> LibraryCategoryList::tagGroupByName(const QString& name) const
{
    return LibraryCategory::of(m_view->categoryByName(name), m_view);
}

int LibraryCategoryList::tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const
{
    out.clear();
    for (const auto& group : m_view->userCategories())
        out.append(LibraryCategory::of(group, m_view));
    return out.size();
}
