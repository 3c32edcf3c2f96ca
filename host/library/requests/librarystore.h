// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryoutcome.h"

#include <tagrecords.h>

#include <functional>

class LibraryDatabase;

/// The requests that change tags and categories, each one transaction on the database: it is on the disk when the
/// outcome is done, and nothing changed when it is anything else. Never throws.
///
/// A list with one id or name that cannot be carried out fails as a whole; the outcome names what was rejected.
/// Whatever is the way asked for already (a tag in its category, a name kept) is no failure and writes nothing. Each
/// costs a few look-ups in indexes for each id; deleting a tag also costs its links.
class LibraryStore
{
public:
    /// To be used on the database's thread while the database lives.
    explicit LibraryStore(LibraryDatabase& database);

    [[nodiscard]] LibraryOutcome createTags(const QVector<NewTagRecord>& tags);
    [[nodiscard]] LibraryOutcome renameTag(qint64 id, const QString& name);
    [[nodiscard]] LibraryOutcome setTagColor(qint64 id, int colorIndex);
    [[nodiscard]] LibraryOutcome deleteTags(const QVector<qint64>& ids);
    [[nodiscard]] LibraryOutcome addTagsToCategories(const QVector<qint64>& categoryIds, const QVector<qint64>& tagIds);
    [[nodiscard]] LibraryOutcome removeTagsFromCategories(const QVector<qint64>& categoryIds,
                                                          const QVector<qint64>& tagIds);

    [[nodiscard]] LibraryOutcome addCategory(const QString& name);
    [[nodiscard]] LibraryOutcome removeCategory(qint64 id);
    [[nodiscard]] LibraryOutcome renameCategory(qint64 id, const QString& name);

private:
    [[nodiscard]] LibraryOutcome transact(const std::function<void(LibraryChange&)>& body);

    void createTag(const NewTagRecord& tag, LibraryChange& change);
    void requireTags(const QVector<qint64>& ids);
    TagRow requireTag(qint64 id);
    void requireFillableCategories(const QVector<qint64>& ids);
    CategoryRow requireUserCategory(qint64 id);
    void requireFreeCategoryName(const QString& name, qint64 ownId);

    LibraryDatabase& m_database;
};
