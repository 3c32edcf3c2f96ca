// SPDX-License-Identifier: MIT
#include "host/library/database/filequeries.h"

#include "host/library/database/filesearch.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/reservedcategory.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>

namespace {

QVector<qint64> fileIdsOfTags(LibraryDatabase& database, const QVector<qint64>& tagIds)
{
    // A few tags: their files are collected and sorted. Many: each file is asked for its tags, in the order of the
    // paths; the plus sign keeps SQLite from asking each tag for the file. 1,000,000 files with 100,000 tags took 8 s
    // the first way.
    constexpr int manyTags = 2000;
    LibraryStatement select(database, tagIds.size() < manyTags
                                          ? "SELECT id FROM files WHERE id IN (SELECT file_id FROM file_tags WHERE"
                                            " tag_id IN (SELECT value FROM json_each(?))) ORDER BY root_id, path"
                                          : "SELECT id FROM files WHERE EXISTS (SELECT 1 FROM file_tags WHERE"
                                            " file_id = files.id AND +tag_id IN (SELECT value FROM json_each(?)))"
                                            " ORDER BY root_id, path");
    return select.run(filequeries::jsonArray(tagIds)).integers();
}

template <typename Unwanted>
void removeAll(QVector<qint64>& ids, const Unwanted& unwanted)
{
    ids.erase(std::remove_if(ids.begin(), ids.end(), [&](qint64 id) { return unwanted.contains(id); }), ids.end());
}

QSet<qint64> deletedTags(LibraryDatabase& database)
{
    const QVector<qint64> ids = tagtable::deletedIds(database);
    return {ids.cbegin(), ids.cend()};
}

}  // namespace

QString filequeries::jsonArray(const QVector<qint64>& ids)
{
    // Ids are below 2^53 (they count up from 1), which is what a number in JSON holds.
    QJsonArray array;
    for (qint64 id : ids)
        array.append(id);
    return QString::fromLatin1(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QVector<qint64> filequeries::livingTagsOf(LibraryDatabase& database, qint64 fileId)
{
    LibraryStatement select(database, "SELECT tag_id FROM file_tags JOIN tags ON tags.id = tag_id WHERE file_id = ?"
                                      " AND deleted IS NULL ORDER BY tag_id");
    return select.run(fileId).integers();
}

QVector<TagShare> filequeries::tagSharesOf(LibraryDatabase& database, const QVector<qint64>& fileIds)
{
    LibraryStatement select(database, "SELECT tag_id, count(*) FROM file_tags JOIN tags ON tags.id = tag_id"
                                      " WHERE file_id IN (SELECT value FROM json_each(?)) AND deleted IS NULL"
                                      " GROUP BY tag_id ORDER BY count(*) DESC, tags.name");
    select.run(jsonArray(fileIds));
    QVector<TagShare> shares;
    while (select.next())
        shares.append({select.integer(0), int(select.integer(1))});
    return shares;
}

QVector<qint64> filequeries::tagIdsOfCategories(LibraryDatabase& database, const QVector<qint64>& categoryIds)
{
    if (categoryIds.contains(reservedcategory::allTags))
        return LibraryStatement(database, "SELECT id FROM tags WHERE deleted IS NULL").run().integers();
    LibraryStatement select(database,
                            "SELECT tag_id FROM tag_categories JOIN categories ON categories.id = category_id"
                            " WHERE categories.deleted IS NULL AND category_id IN (SELECT value FROM json_each(?))");
    QVector<qint64> tagIds = select.run(jsonArray(categoryIds)).integers();
    if (categoryIds.contains(reservedcategory::unsorted)) {
        LibraryStatement rest(database,
                              "SELECT id FROM tags WHERE deleted IS NULL AND id NOT IN (SELECT tag_id FROM"
                              " tag_categories JOIN categories ON categories.id = category_id WHERE category_id >= ?"
                              " AND categories.deleted IS NULL)");
        tagIds += rest.run(reservedcategory::firstUserId).integers();
    }
    return tagIds;
}

QVector<qint64> filequeries::fileIds(LibraryDatabase& database, const FileQuery& query)
{
    if (query.scope == FileQuery::Scope::AllFiles)
        return LibraryStatement(database, "SELECT id FROM files ORDER BY root_id, path").run().integers();
    const LibraryTransaction transaction(database, LibraryTransaction::Kind::Reading);
    if (query.scope == FileQuery::Scope::Matching)
        return filesearch::find(database, query.term);
    QVector<qint64> tagIds =
        query.scope == FileQuery::Scope::Tags ? query.ids : tagIdsOfCategories(database, query.ids);
    removeAll(tagIds, deletedTags(database));
    return fileIdsOfTags(database, tagIds);
}

void filequeries::forEachFile(LibraryDatabase& database, const filetable::FileVisitor& visitor)
{
    const LibraryTransaction transaction(database, LibraryTransaction::Kind::Reading);
    const QSet<qint64> deleted = deletedTags(database);
    filetable::forEach(database, [&](FileRow& file) {
        file.tagIds = filetable::tagsOf(database, file.id);
        if (!deleted.isEmpty())
            removeAll(file.tagIds, deleted);
        return visitor(file);
    });
}
