// SPDX-License-Identifier: MIT
#pragma once

#include <itaggroupdataprovider.h>

#include <memory>

class LibraryMemory;
struct CategoryEntry;

/// One category as the tag manager sees it. Asking for all tags makes a provider for each that has none: linear in
/// their number; everything else costs a look-up. Stays readable after the category is removed (it is empty and has no
/// record then) and after the library is closed.
class LibraryCategory final : public ITagGroupDataProvider
{
    Q_OBJECT

public:
    /// The provider of \a entry: the one that somebody holds, else a new one. Null for a null entry.
    [[nodiscard]] static QSharedPointer<ITagGroupDataProvider> of(const std::shared_ptr<CategoryEntry>& entry,
                                                                  const std::shared_ptr<const LibraryMemory>& view);

    LibraryCategory(const std::shared_ptr<CategoryEntry>& entry, const std::shared_ptr<const LibraryMemory>& view);
    ~LibraryCategory() override;

    [[nodiscard]] int tagCount(int flag) const override;
    [[nodiscard]] QString groupName() const override;
    /// A new snapshot at every call; null once the category is removed.
    [[nodiscard]] QSharedPointer<const ITagGroupInfo> groupInfo() const override;
    [[nodiscard]] qint64 groupId() const override;
    int tags(QHash<qint64, QSharedPointer<ITagDataProvider>>* out) const override;
    int tagsByIds(const QVector<qint64>& ids, QHash<qint64, QSharedPointer<ITagDataProvider>>* out) const override;
    [[nodiscard]] QSharedPointer<ITagDataProvider> tagByName(const QString& name) const override;

private:
    std::shared_ptr<CategoryEntry> m_entry;
    std::shared_ptr<const LibraryMemory> m_view;
};
