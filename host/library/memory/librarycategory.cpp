// SPDX-License-Identifier: MIT
#include "host/library/memory/librarycategory.h"

#include "host/library/memory/libraryinfos.h"
#include "host/library/memory/librarymemory.h"
#include "host/library/memory/librarytag.h"

QSharedPointer<ITagGroupDataProvider> LibraryCategory::of(const std::shared_ptr<CategoryEntry>& entry,
                                                          const std::shared_ptr<const LibraryMemory>& view)
{
    if (!entry)
        return {};
    QSharedPointer<LibraryCategory> provider = entry->provider.toStrongRef();
    if (!provider) {
        provider = QSharedPointer<LibraryCategory>::create(entry, view);
        entry->provider = provider;
    }
    return provider;
}

LibraryCategory::LibraryCategory(const std::shared_ptr<CategoryEntry>& entry,
                                 const std::shared_ptr<const LibraryMemory>& view)
    : m_entry(entry)
    , m_view(view)
{
}

LibraryCategory::~LibraryCategory() = default;

int LibraryCategory::tagCount(int flag) const
{
    Q_UNUSED(flag)
    return m_entry->tags.size();
}

QString LibraryCategory::groupName() const
{
    return m_entry->name;
}

QSharedPointer<const ITagGroupInfo> LibraryCategory::groupInfo() const
{
    if (m_entry->gone)
        return {};
    return QSharedPointer<LibraryCategoryInfo>::create(m_entry->id, m_entry->name);
}

qint64 LibraryCategory::groupId() const
{
    return m_entry->id;
}

int LibraryCategory::tags(QHash<qint64, QSharedPointer<ITagDataProvider>>* out) const
{
    out->reserve(out->size() + m_entry->tags.size());
    for (const auto& tag : qAsConst(m_entry->tags))
        out->insert(tag->id, LibraryTag::of(tag));
    return m_entry->tags.size();
}

int LibraryCategory::tagsByIds(const QVector<qint64>& ids, QHash<qint64, QSharedPointer<ITagDataProvider>>* out) const
{
    QHash<qint64, QSharedPointer<ITagDataProvider>> found;
    for (qint64 id : ids) {
        const auto tag = m_entry->tags.constFind(id);
        if (tag != m_entry->tags.constEnd())
            found.insert(id, LibraryTag::of(*tag));
    }
    for (auto tag = found.cbegin(); tag != found.cend(); ++tag)
        out->insert(tag.key(), tag.value());
    return found.size();
}

QSharedPointer<ITagDataProvider> LibraryCategory::tagByName(const QString& name) const
{
    const std::shared_ptr<TagEntry> tag = m_view->tagByName(name);
    if (!tag || !m_entry->tags.contains(tag->id))
        return {};
    return LibraryTag::of(tag);
}
