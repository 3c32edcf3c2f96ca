// SPDX-License-Identifier: MIT
#include "host/library/memory/libraryresponse.h"

#include "host/library/memory/libraryinfos.h"

LibraryResponse::LibraryResponse(ChangeKind kind, const LibraryResult& result)
    : m_kind(kind)
    , m_status(result.status)
    , m_message(result.message)
    , m_tags(result.rejectedTags)
    , m_categories(result.rejectedCategories)
{
}

int LibraryResponse::status() const
{
    return static_cast<int>(m_status);
}

QString LibraryResponse::message() const
{
    return m_message;
}

void LibraryResponse::rejectedTags(QVector<QSharedPointer<const ITagInfo>>& out) const
{
    out.clear();
    for (const TagRow& tag : m_tags)
        out.append(QSharedPointer<LibraryTagInfo>::create(tag.id, tag.name, tag.colorIndex));
}

void LibraryResponse::rejectedGroups(QVector<QSharedPointer<const ITagGroupInfo>>& out) const
{
    out.clear();
    for (const CategoryRow& category : m_categories)
        out.append(QSharedPointer<LibraryCategoryInfo>::create(category.id, category.name));
}

void LibraryResponse::rejectedFiles(QVector<QSharedPointer<const QString>>& out) const
{
    out.clear();
}
