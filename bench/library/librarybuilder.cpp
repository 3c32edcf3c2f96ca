// SPDX-License-Identifier: MIT
#include "bench/library/librarybuilder.h"

#include "bench/library/librarycontent.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryfile.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/reservedcategory.h"
#include "host/library/records/tagpalette.h"

namespace {

constexpr int favoriteEvery = 1000;  // tags
/// What spreads the files over the tags: large primes, one for each tag of a file, taken modulo 2^32.
constexpr qint64 spreaders[bench::LibraryContent::tagsOfFile] = {2654435761, 2246822519, 3266489917};

void insertTags(LibraryDatabase& database, const bench::LibraryContent& content)
{
    for (int id = 1; id <= content.tags(); ++id)
        tagtable::insertTag(database, content.tagName(id), id % TagPalette::Size);
}

/// Four of five tags are in a category.
void insertCategories(LibraryDatabase& database, const bench::LibraryContent& content)
{
    for (int i = 0; i < content.categories(); ++i)
        tagtable::insertCategory(database, bench::LibraryContent::categoryName(i));
    const int cycle = content.categories() * 5 / 4;
    LibraryStatement(database, "INSERT INTO tag_categories SELECT ? + id % ?, id FROM tags WHERE id % ? < ?")
        .run(reservedcategory::FirstUserId, cycle, cycle, content.categories());
    LibraryStatement(database, "INSERT INTO tag_categories SELECT ?, id FROM tags WHERE id % ? = 0")
        .run(reservedcategory::Favorites, favoriteEvery);
}

void insertFiles(LibraryDatabase& database, int count)
{
    LibraryStatement(database, "INSERT INTO files (path, size, modified, content)"
                               " WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?)"
                               " SELECT CAST(printf('/pictures/%04d/%07d.jpg', i / 1000, i) AS BLOB), 1000 + i % 9000,"
                               " 1600000000000000000 + i, CAST(printf('%032d', i) AS BLOB) FROM n")
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

}  // namespace

void bench::buildLibrary(const QString& path, const LibraryContent& content)
{
    const std::unique_ptr<LibraryDatabase> database = libraryfile::openOrCreate(path);
    database->execute(QStringLiteral("PRAGMA synchronous = OFF"));
    database->execute(QStringLiteral("PRAGMA cache_size = -500000"));
    LibraryTransaction transaction(*database, LibraryTransaction::Kind::Writing);
    insertTags(*database, content);
    insertCategories(*database, content);
    insertFiles(*database, content.files());
    insertLinks(*database, content.tags());
    transaction.commit();
}
