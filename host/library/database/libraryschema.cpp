// SPDX-License-Identifier: MIT
#include "host/library/database/libraryschema.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/records/librarytext.h"

namespace {

// Names: "name" is what is compared, "spelling" is what was typed where that differs. Both have no type, because a name
// is text or a blob (see tagname). Ids are never used twice; category ids fit into 32 bits.
const libraryschema::Step Version1 = {
    "CREATE TABLE tags (id INTEGER PRIMARY KEY AUTOINCREMENT, name NOT NULL UNIQUE, spelling,"
    " color INTEGER NOT NULL DEFAULT 0)",
    "CREATE TABLE categories (id INTEGER PRIMARY KEY AUTOINCREMENT CHECK (id BETWEEN 1 AND 2147483647),"
    " name NOT NULL UNIQUE, spelling)",
    "INSERT INTO categories (id, name) VALUES (1, 'Favorite Tags')",
    "CREATE TABLE tag_categories (category_id INTEGER NOT NULL REFERENCES categories (id) ON DELETE CASCADE,"
    " tag_id INTEGER NOT NULL REFERENCES tags (id) ON DELETE CASCADE, PRIMARY KEY (category_id, tag_id)) WITHOUT ROWID",
    "CREATE INDEX tag_categories_by_tag ON tag_categories (tag_id)",
    "CREATE TABLE files (id INTEGER PRIMARY KEY AUTOINCREMENT, path BLOB NOT NULL UNIQUE, size INTEGER NOT NULL,"
    " modified INTEGER NOT NULL, sidecars BLOB, content BLOB)",
    "CREATE TABLE file_tags (tag_id INTEGER NOT NULL REFERENCES tags (id) ON DELETE CASCADE,"
    " file_id INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE, PRIMARY KEY (tag_id, file_id)) WITHOUT ROWID",
    "CREATE INDEX file_tags_by_file ON file_tags (file_id)",
};

int versionOf(LibraryDatabase& database)
{
    return database.number(QStringLiteral("PRAGMA user_version"));
}

/// Dropping a table, as steps do that build one anew, deletes what refers to it while foreign keys are on. They can be
/// switched outside of transactions only. https://www.sqlite.org/lang_altertable.html#otheralter
class WithoutForeignKeys
{
public:
    explicit WithoutForeignKeys(LibraryDatabase& database)
        : m_database(database)
        , m_before(database.number(QStringLiteral("PRAGMA foreign_keys")))
    {
        m_database.execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
    }
    ~WithoutForeignKeys()
    {
        try {
            m_database.execute(QStringLiteral("PRAGMA foreign_keys = %1").arg(m_before));
        } catch (const LibraryError&) {
            // Only without memory, and then nothing else works on this connection either.
        }
    }

private:
    Q_DISABLE_COPY(WithoutForeignKeys)

    LibraryDatabase& m_database;
    int m_before;
};

void requireWholeReferences(LibraryDatabase& database)
{
    if (database.number(QStringLiteral("SELECT count(*) FROM pragma_foreign_key_check")) > 0)
        throw LibraryError(LibraryStatus::Failed,
                           librarytext::tr("The library is damaged and cannot be brought to the current version."));
}

/// Another program may have taken the step while this one waited for the lock.
void takeStep(LibraryDatabase& database, int from, const libraryschema::Step& step)
{
    LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing);
    if (versionOf(database) != from)
        return;
    for (const char* sql : step)
        database.execute(QString::fromLatin1(sql));
    requireWholeReferences(database);
    database.execute(QStringLiteral("PRAGMA application_id = %1").arg(libraryschema::ApplicationId));
    database.execute(QStringLiteral("PRAGMA user_version = %1").arg(from + 1));
    transaction.commit();
}

}  // namespace

const QVector<libraryschema::Step>& libraryschema::steps()
{
    static const QVector<Step> all = {Version1};
    return all;
}

int libraryschema::currentVersion()
{
    return steps().size();
}

void libraryschema::migrate(LibraryDatabase& database, const QVector<Step>& steps)
{
    int version = versionOf(database);
    if (version < steps.size()) {
        const WithoutForeignKeys unchecked(database);
        for (; version < steps.size(); version = versionOf(database))
            takeStep(database, version, steps.at(version));
    }
    if (version > steps.size())
        throw LibraryError(LibraryStatus::Failed,
                           librarytext::tr("The library was made by a newer version of this program."));
}
