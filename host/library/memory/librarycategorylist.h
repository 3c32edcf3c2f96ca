// SPDX-License-Identifier: MIT
#pragma once

#include <itagmanagerdataprovider.h>

#include <memory>

class LibraryMemory;

/// The tags and categories of a library as the tag manager sees them. Every look-up is one in memory.
class LibraryCategoryList final : public ITagManagerDataProvider
{
    Q_OBJECT

public:
    explicit LibraryCategoryList(const std::shared_ptr<const LibraryMemory>& view);
    ~LibraryCategoryList() override;

    [[nodiscard]] QSharedPointer<ITagGroupDataProvider> tagGroup(qint64 g_id) const override;
    /// Finds the reserved categories too, whose names nobody may take.
    [[nodiscard]] QSharedPointer<ITagGroupDataProvider> tagGroupByName(const QString& name) const override;
    /// Ascending by id.
    int tagGroups(QVector<QSharedPointer<ITagGroupDataProvider>>& out) const override;

private:
    std::shared_ptr<const LibraryMemory> m_view;
};
