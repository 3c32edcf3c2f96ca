// SPDX-License-Identifier: MIT
#include "bench/library/librarybuilder.h"

#include "bench/library/librarycontent.h"
#include "bench/library/libraryside.h"
#include "host/library/computer/computerstate.h"
#include "host/library/database/categorytable.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/roottable.h"
#include "host/library/database/tagtable.h"
#include "host/library/libraryopening.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagpalette.h"

namespace {

constexpr int favoriteEvery = 1000;  // tags
/// What spreads the files over the tags: large primes, one for each tag of a file, taken modulo 2^32.
constexpr qint64 spreaders[bench::LibraryContent::tagsOfFile] = {2654435761, 2246822519, 3266489917};

void insertTags(LibraryDatabase& database, const bench::LibraryContent& content)
{
    for (int id = 1; id <= content.tags(); ++id)
        tagtable::insertTag(database, content.tagName(id), id % TagPalette::size);
}

/// Four of five tags are in a category.
void insertCategories(LibraryDatabase& database, const bench::LibraryContent& content)
{
    for (int i = 0; i < content.categories(); ++i)
        categorytable::insertCategory(database, bench::LibraryContent::categoryName(i));
    const int cycle = content.categories() * 5 / 4;
    LibraryStatement(database, "INSERT INTO tag_categories SELECT ? + id % ?, id FROM tags WHERE id % ? < ?")
        .run(reservedcategory::firstUserId, cycle, cycle, content.categories());
    LibraryStatement(database, "INSERT INTO tag_categories SELECT ?, id FROM tags WHERE id % ? = 0")
        .run(reservedcategory::favorites, favoriteEvery);
    LibraryStatement(database, "UPDATE categories SET tag_count ="
                               " (SELECT count(*) FROM tag_categories WHERE category_id = id)")
        .run();
}

/// The root of the built files, and that of those that are imported later.
void insertRoots(LibraryDatabase& database, const QString& libraryId, int files)
{
    ComputerState computer(libraryId);
    const qint64 root = roottable::insert(database, QStringLiteral("pictures"));
    roottable::addToFileCount(database, root, files);
    computer.setMount(root, "/pictures");
    computer.setMount(roottable::insert(database, QStringLiteral("imported")), bench::importedFolder());
}

void insertFiles(LibraryDatabase& database, int count)
{
    LibraryStatement(database, "INSERT INTO files (root_id, path, size, modified, reader)"
                               " WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?)"
                               " SELECT 1, CAST(printf('%04d/%07d.jpg', i / 1000, i) AS BLOB), 1000 + i % 9000,"
                               " 1600000000000000000 + i, 1 FROM n")
        .run(count);
}

/// The fourth power makes a few tags frequent. Each of a file's tags is from another part of the tags, so that no two
/// are the same. In the order of the table, which is how it is filled fastest.
void insertLinks(LibraryDatabase& database, int tags)
{
    constexpr int parts = bench::LibraryContent::tagsOfFile;
    for (int part = 0; part < parts; ++part) {
        LibraryStatement(database, "INSERT INTO file_tags (tag_id, file_id)"
                                   " WITH spread (id, u) AS (SELECT id, (id * ? & 4294967295) / 4294967296.0"
                                   " FROM files) SELECT ? * CAST(? * u * u * u * u AS INTEGER) + ?, id FROM spread"
                                   " ORDER BY 1, 2")
            .run(spreaders[part], parts, tags / parts, part + 1);
    }
}

/// Every tag has the keyword that it was made from.
void insertKeywords(LibraryDatabase& database)
{
    database.execute(QStringLiteral("INSERT INTO keywords SELECT id, name, spelling, id, 0 FROM tags"));
    database.execute(
        QStringLiteral("INSERT INTO file_keywords SELECT file_id, tag_id FROM file_tags ORDER BY file_id, tag_id"));
    database.execute(
        QStringLiteral("UPDATE tags SET file_count = (SELECT count(*) FROM file_tags WHERE tag_id = tags.id)"));
}

}  // namespace

void bench::buildLibrary(const QString& path, const LibraryContent& content)
{
    const libraryopening::Opened opened = libraryopening::openOrCreate(path);
    LibraryDatabase& database = *opened.database;
    database.execute(QStringLiteral("PRAGMA synchronous = OFF"));
    database.execute(QStringLiteral("PRAGMA cache_size = -500000"));
    LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing);
    insertTags(database, content);
    insertCategories(database, content);
    insertRoots(database, opened.id, content.files());
    insertFiles(database, content.files());
    insertLinks(database, content.tags());
    insertKeywords(database);
    transaction.commit();
}
