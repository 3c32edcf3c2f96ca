// SPDX-License-Identifier: MIT
#include "host/library/memory/librarytag.h"

#include "host/library/memory/libraryentries.h"
#include "host/library/memory/libraryinfos.h"

QSharedPointer<ITagDataProvider> LibraryTag::of(const std::shared_ptr<TagEntry>& entry)
{
    QSharedPointer<LibraryTag> provider = entry->provider.toStrongRef();
    if (!provider) {
        provider = QSharedPointer<LibraryTag>::create(entry);
        entry->provider = provider;
    }
    return provider;
}

LibraryTag::LibraryTag(const std::shared_ptr<TagEntry>& entry)
    : m_entry(entry)
{
}

LibraryTag::~LibraryTag() = default;

int LibraryTag::fileCount(int flag) const
{
    Q_UNUSED(flag)
    return m_entry->fileCount;
}

QString LibraryTag::name() const
{
    return m_entry->name;
}

QSharedPointer<const ITagInfo> LibraryTag::tagInfo() const
{
    if (m_entry->gone)
        return {};
    return QSharedPointer<LibraryTagInfo>::create(m_entry->id, m_entry->name, m_entry->colorIndex);
}
