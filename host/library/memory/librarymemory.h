// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/memory/libraryentries.h"
#include "host/library/memory/librarynotifications.h"
#include "host/library/records/librarychange.h"

#include <QSet>
#include <QSharedPointer>

class ITagDataProvider;
class ITagGroupDataProvider;
struct LibraryContents;

/// Tags, categories and which tag is in which, in memory: everything that the providers read. GUI thread only.
///
/// Look-ups by id and by name cost one hash access. Applying a change costs what it names, not what the library holds;
/// removing a category costs its tags. Providers are made when they are asked for and owned by who holds them.
class LibraryMemory
{
public:
    LibraryMemory();
    ~LibraryMemory();

    /// Fills it, if it is empty.
    void load(const LibraryContents& contents);
    /// What leads from here to \a contents; nothing about files. Costs a look at everything that both hold.
    [[nodiscard]] LibraryChange changeTo(const LibraryContents& contents) const;
    /// Brings a committed change into memory and returns what is to be emitted. Ids that are not known are ignored.
    [[nodiscard]] LibraryNotifications apply(const LibraryChange& change);

    /// Null for an unknown id.
    [[nodiscard]] std::shared_ptr<CategoryEntry> category(qint64 id) const;
    /// Null when no category, reserved ones included, has that name.
    [[nodiscard]] std::shared_ptr<CategoryEntry> categoryByName(const QString& name) const;
    /// The user categories, ascending by id.
    [[nodiscard]] QVector<std::shared_ptr<CategoryEntry>> userCategories() const;
    /// Null when no tag has that name.
    [[nodiscard]] std::shared_ptr<TagEntry> tagByName(const QString& name) const;

private:
    Q_DISABLE_COPY(LibraryMemory)

    void compareTags(const QVector<TagRow>& rows, LibraryChange& change) const;
    void compareCategories(const QVector<CategoryRow>& rows, LibraryChange& change) const;
    void compareLinks(const QVector<TagLink>& rows, LibraryChange& change) const;
    [[nodiscard]] std::shared_ptr<TagEntry> tag(qint64 id) const;
    std::shared_ptr<CategoryEntry> addCategory(qint64 id, const QString& name);
    void reserveFor(int tagCount);
    std::shared_ptr<TagEntry> addTag(const TagRow& row);
    [[nodiscard]] bool isUnsorted(const TagEntry& tag) const;

    void createTags(const QVector<TagRow>& rows);
    void changeTags(const QVector<TagRow>& rows);
    void countFiles(const QHash<qint64, int>& changes);
    void deleteTags(const QVector<qint64>& ids);
    void createCategories(const QVector<CategoryRow>& rows);
    void renameCategories(const QVector<CategoryRow>& rows);
    void removeCategories(const QVector<qint64>& ids);
    void addLinks(const QVector<TagLink>& links);
    void removeLinks(const QVector<TagLink>& links);

    void noteUpdated(const std::shared_ptr<TagEntry>& tag);
    void join(const std::shared_ptr<CategoryEntry>& category, const std::shared_ptr<TagEntry>& tag);
    void leave(const std::shared_ptr<CategoryEntry>& category, qint64 tagId);
    void leaveCategory(const std::shared_ptr<CategoryEntry>& category, const std::shared_ptr<TagEntry>& tag);
    [[nodiscard]] CategoryNotification& notificationOf(const std::shared_ptr<CategoryEntry>& category);

    QHash<qint64, std::shared_ptr<CategoryEntry>> m_categories;
    QHash<QString, std::shared_ptr<CategoryEntry>> m_categoriesByKey;
    QHash<QString, std::shared_ptr<TagEntry>> m_tagsByKey;
    std::shared_ptr<CategoryEntry> m_allTags;
    std::shared_ptr<CategoryEntry> m_unsorted;
    LibraryNotifications m_notifications;  ///< Of the change that is being applied.
    QHash<qint64, int> m_notificationIndex;
    QSet<qint64> m_updatedTags;
};
