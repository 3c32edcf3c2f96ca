// SPDX-License-Identifier: MIT
#pragma once

#include <itagdataprovider.h>

#include <memory>

struct TagEntry;

/// One tag as the tag manager sees it: a window on the library's entry, cheap enough to be made for every tag at once.
/// Stays readable after the tag is deleted (it has no record then) and after the library is closed.
class LibraryTag final : public ITagDataProvider
{
    Q_OBJECT

public:
    /// The provider of \a entry: the one that somebody holds, else a new one.
    [[nodiscard]] static QSharedPointer<ITagDataProvider> of(const std::shared_ptr<TagEntry>& entry);

    explicit LibraryTag(const std::shared_ptr<TagEntry>& entry);
    ~LibraryTag() override;

    [[nodiscard]] int fileCount(int flag) const override;
    [[nodiscard]] QString name() const override;
    /// A new snapshot at every call; null once the tag is deleted.
    [[nodiscard]] QSharedPointer<const ITagInfo> tagInfo() const override;

private:
    std::shared_ptr<TagEntry> m_entry;
};
