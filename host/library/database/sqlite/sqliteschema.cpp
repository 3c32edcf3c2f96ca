// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/sqliteschema.h"

#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytable.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/records/librarytext.h"

#include <QElapsedTimer>
#include <QSet>

namespace {

constexpr int longestWait = 5000;  // Milliseconds, for a lock of another program.

/// Dropping a table, as steps do that build one anew, deletes what refers to it while foreign keys are on, and renaming
/// one rewrites what refers to it. Both can be switched outside of transactions only.
/// https://www.sqlite.org/lang_altertable.html#otheralter
class FreeHand
{
public:
    explicit FreeHand(LibraryDatabase& database)
        : m_database(database)
    {
        m_database.execute(QStringLiteral("PRAGMA foreign_keys = OFF"));
        m_database.execute(QStringLiteral("PRAGMA legacy_alter_table = ON"));
    }
    ~FreeHand()
    {
        try {
            m_database.execute(QStringLiteral("PRAGMA legacy_alter_table = OFF"));
            m_database.execute(QStringLiteral("PRAGMA foreign_keys = ON"));
        } catch (const LibraryError&) {
            // Only without memory, and then nothing else works on this connection either.
        }
    }

private:
    Q_DISABLE_COPY(FreeHand)

    LibraryDatabase& m_database;
};

LibraryTransaction::MayWait untilLongestWait()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed() < longestWait; };
}

void setVersion(LibraryDatabase& database, int version)
{
    database.execute(QStringLiteral("PRAGMA application_id = %1").arg(sqliteschema::applicationId));
    database.execute(QStringLiteral("PRAGMA user_version = %1").arg(version));
}

}  // namespace

// Names: "name" is what is compared, "spelling" is what was typed where that differs. Both have no type, because a name
// is text or a blob (see tagname). Ids are never used twice; category ids fit into 32 bits. A "deleted" row is marked
// with the id of the change that deleted it and keeps everything that refers to it; names are unique among the others.
const QVector<const char*>& sqliteschema::tables()
{
    static const QVector<const char*> statements = {
        "CREATE TABLE library (key TEXT PRIMARY KEY, value) WITHOUT ROWID",
        "CREATE TABLE tags (id INTEGER PRIMARY KEY AUTOINCREMENT, name NOT NULL, spelling,"
        " color INTEGER NOT NULL DEFAULT 0, file_count INTEGER NOT NULL DEFAULT 0, deleted INTEGER)",
        "CREATE UNIQUE INDEX tags_by_name ON tags (name) WHERE deleted IS NULL",
        "CREATE TABLE categories (id INTEGER PRIMARY KEY AUTOINCREMENT CHECK (id BETWEEN 1 AND 2147483647),"
        " name NOT NULL, spelling, tag_count INTEGER NOT NULL DEFAULT 0, deleted INTEGER)",
        "CREATE UNIQUE INDEX categories_by_name ON categories (name) WHERE deleted IS NULL",
        "CREATE TABLE tag_categories (category_id INTEGER NOT NULL REFERENCES categories (id) ON DELETE CASCADE,"
        " tag_id INTEGER NOT NULL REFERENCES tags (id) ON DELETE CASCADE, PRIMARY KEY (category_id, tag_id))"
        " WITHOUT ROWID",
        "CREATE INDEX tag_categories_by_tag ON tag_categories (tag_id)",
        "CREATE TABLE roots (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL,"
        " file_count INTEGER NOT NULL DEFAULT 0)",
        // "reader" is the version of the reader whose facts are stored, 0 for facts of a library of version 1. Of a
        // file from such a library "v1_content" is the hash of its keywords until its tags are explained by them.
        "CREATE TABLE files (id INTEGER PRIMARY KEY AUTOINCREMENT, root_id INTEGER NOT NULL REFERENCES roots (id),"
        " path BLOB NOT NULL, size INTEGER NOT NULL, modified INTEGER NOT NULL, sidecars BLOB, reader INTEGER NOT NULL,"
        " identity BLOB, taken INTEGER, v1_content BLOB)",
        "CREATE UNIQUE INDEX files_by_path ON files (root_id, path)",
        "CREATE INDEX files_of_version_1 ON files (id) WHERE v1_content IS NOT NULL",
        // What is shown: the tags of the file's keywords and of the "plus" decisions, without the "minus" ones. Kept by
        // every commit, for deleted tags, too.
        "CREATE TABLE file_tags (tag_id INTEGER NOT NULL REFERENCES tags (id) ON DELETE CASCADE,"
        " file_id INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE, PRIMARY KEY (tag_id, file_id))"
        " WITHOUT ROWID",
        "CREATE INDEX file_tags_by_file ON file_tags (file_id)",
        // States: see keywordtable::State.
        "CREATE TABLE keywords (id INTEGER PRIMARY KEY AUTOINCREMENT, name NOT NULL UNIQUE, spelling,"
        " tag_id INTEGER REFERENCES tags (id), state INTEGER NOT NULL)",
        "CREATE TABLE file_keywords (file_id INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE,"
        " keyword_id INTEGER NOT NULL REFERENCES keywords (id), PRIMARY KEY (file_id, keyword_id)) WITHOUT ROWID",
        "CREATE TABLE decisions (file_id INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE,"
        " tag_id INTEGER NOT NULL REFERENCES tags (id) ON DELETE CASCADE, sign INTEGER NOT NULL CHECK (sign IN (-1, "
        "1)),"
        " PRIMARY KEY (file_id, tag_id)) WITHOUT ROWID",
        "CREATE INDEX decisions_by_tag ON decisions (tag_id)",
        // The log: what each transaction did, when (milliseconds since 1970-01-01 UTC), and for whom.
        "CREATE TABLE changes (id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, who TEXT, at INTEGER NOT NULL,"
        " request BLOB NOT NULL, payload BLOB, inverse BLOB, undone INTEGER NOT NULL DEFAULT 0)",
    };
    return statements;
}

void sqliteschema::create(LibraryDatabase& database)
{
    LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing, untilLongestWait());
    if (versionOf(database) != 0)
        return;
    for (const char* sql : tables())
        database.execute(QString::fromLatin1(sql));
    database.execute(QStringLiteral("INSERT INTO categories (id, name) VALUES (1, 'Favorite Tags')"));
    librarytable::setNewId(database);
    setVersion(database, currentVersion);
    transaction.commit();
}

bool sqliteschema::takeStep(LibraryDatabase& database, int from, const Step& step)
{
    const FreeHand free(database);
    LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing, untilLongestWait());
    if (versionOf(database) != from)
        return false;
    step(database);
    if (database.number(QStringLiteral("SELECT count(*) FROM pragma_foreign_key_check")) > 0)
        throw LibraryError(LibraryStatus::Failed,
                           LibraryText::tr("The library is damaged and cannot be brought to the current version."));
    setVersion(database, from + 1);
    transaction.commit();
    return true;
}

int sqliteschema::versionOf(LibraryDatabase& database)
{
    return static_cast<int>(database.number(QStringLiteral("PRAGMA user_version")));
}

void sqliteschema::requireOurTables(LibraryDatabase& database)
{
    QSet<QByteArray> expected;
    for (const char* sql : tables())
        expected.insert(sql);
    LibraryStatement select(database, "SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
    select.run();
    bool asExpected = true;
    int found = 0;
    for (; select.next(); ++found)
        asExpected = asExpected && expected.contains(select.bytes(0));
    if (!asExpected || found != expected.size())
        throw LibraryError(LibraryStatus::Failed, LibraryText::tr("The library is damaged: its tables are not those "
                                                                  "that this program makes."));
}
