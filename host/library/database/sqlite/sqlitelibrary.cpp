// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/sqlitelibrary.h"

#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytable.h"
#include "host/library/database/sqlite/librarycopy.h"
#include "host/library/database/sqlite/ownerfile.h"
#include "host/library/database/sqlite/sqliteschema.h"
#include "host/library/records/librarytext.h"
#include "host/library/records/plainpath.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <cerrno>

namespace {

/// Offsets in the header of a database file, https://www.sqlite.org/fileformat2.html#the_database_header.
constexpr int headerSize = 100;
constexpr int formatOffset = 18;
constexpr char formatWithLog = 2;
constexpr int versionOffset = 60;
constexpr int applicationIdOffset = 68;

[[noreturn]] void fail(const QString& message)
{
    throw LibraryError(LibraryStatus::Failed, message);
}

void requireKnownVersion(int version)
{
    if (version > sqliteschema::currentVersion)
        fail(LibraryText::tr("The library was made by a newer version of this program."));
    if (version < 1)
        fail(LibraryText::tr("The library is damaged: it has no version."));
}

struct Header
{
    int version;
    bool hasLogMode;  ///< Else its creation was interrupted before the write-ahead log was switched on.
};

/// The header as it is on the disk, read past SQLite because opening a database may already write to it.
Header readHeader(const QString& path)
{
    if (QFileInfo(path).isDir())
        fail(LibraryText::tr("The library cannot be opened: it is a folder."));
    const HeldFile file(path);
    if (!file.isOpen())
        fail(LibraryText::tr("The library cannot be opened: %1").arg(file.errorString()));
    const QByteArray header = file.head(headerSize);
    if (header.size() < headerSize || !header.startsWith(QByteArray("SQLite format 3\0", 16)))
        fail(LibraryText::tr("The file is no library: it is no database."));
    if (qFromBigEndian<quint32>(header.constData() + applicationIdOffset) != sqliteschema::applicationId)
        fail(LibraryText::tr("The file is no library: it is the database of another program."));
    const int version = qFromBigEndian<qint32>(header.constData() + versionOffset);
    requireKnownVersion(version);
    return {version, header.at(formatOffset) == formatWithLog};
}

bool hasLog(const QString& path)
{
    return QFileInfo(path + QStringLiteral("-wal")).size() > 0;
}

/// The log may hold a version that the header does not show yet. A connection for reading does not move it.
int versionInLog(const QString& path)
{
    SqliteDatabase database(path, SqliteDatabase::Access::ReadOnly);
    const int version = sqliteschema::versionOf(database);
    requireKnownVersion(version);
    return version;
}

bool isEmptyFile(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && info.size() == 0;
}

/// The copy is whole before anything is changed; without one, nothing is.
void migrateVersion1(SqliteDatabase& database, const QString& path, const sqlitelibrary::MigrationObserver& observer)
{
    const LibraryCopy copy(database, path, QStringLiteral(".v1.bak"));
    try {
        const bool isTaken = sqliteschema::takeStep(database, 1, [&observer](LibraryDatabase& inside) {
            const version1::Migrated migrated = version1::migrate(inside);
            observer(librarytable::id(inside), migrated);
        });
        // Another program took it meanwhile and has a copy of its own.
        if (!isTaken)
            copy.remove();
    } catch (const LibraryError&) {
        copy.remove();
        throw;
    }
}

/// What SQLite does instead where it cannot do that is safe for a single program only.
void useLog(SqliteDatabase& database)
{
    LibraryStatement select(database, "PRAGMA journal_mode = WAL");
    if (!select.run().next() || select.bytes(0) != "wal")
        fail(LibraryText::tr("The library cannot be used here: its file system does not allow a log beside it."));
}

}  // namespace

QString sqlitelibrary::resolved(const QString& path)
{
    const QFileInfo info(path);
    if (info.isSymLink() && !info.exists())
        fail(LibraryText::tr("The library cannot be created: the link leads nowhere."));
    return QFile::decodeName(plainPath(QFile::encodeName(path)));
}

bool sqlitelibrary::needsOpening(const QString& path)
{
    if (isEmptyFile(path))
        return true;
    const Header header = readHeader(path);
    const int version = hasLog(path) ? versionInLog(path) : header.version;
    return version < sqliteschema::currentVersion || !header.hasLogMode;
}

std::unique_ptr<SqliteDatabase> sqlitelibrary::connectTo(const QString& path, SqliteDatabase::Access access)
{
    std::unique_ptr<SqliteDatabase> database;
    try {
        database = std::make_unique<SqliteDatabase>(path, access);
        // Reading something opens the log.
        (void)sqliteschema::versionOf(*database);
    } catch (const LibraryError& error) {
        // As SQLite says it for a file system and for a folder. What a log holds must not be passed over.
        const bool cannotMakeLog =
            error.status() == LibraryStatus::NotOpened || error.status() == LibraryStatus::ReadOnly;
        if (!cannotMakeLog || hasLog(path))
            throw;
        database = std::make_unique<SqliteDatabase>(path, SqliteDatabase::Access::Frozen);
    }
    sqliteschema::requireOurTables(*database);
    return database;
}

std::unique_ptr<SqliteDatabase> sqlitelibrary::openOrCreate(const QString& path, const MigrationObserver& observer)
{
    const int failure = createForOwner(path);
    if (failure != 0 && failure != EEXIST)
        fail(LibraryText::tr("The library cannot be created: %1").arg(qt_error_string(failure)));
    // An empty file is a library whose creation was interrupted. The mark of ours is written with its first
    // transaction, before the write-ahead log is switched on, so that it is in the header of every library.
    if (needsOpening(path)) {
        SqliteDatabase database(path, SqliteDatabase::Access::ReadWrite);
        if (sqliteschema::versionOf(database) == 1)
            migrateVersion1(database, path, observer);
        else
            sqliteschema::create(database);
        useLog(database);
    }
    return connectTo(path, SqliteDatabase::Access::ReadWrite);
}
