// SPDX-License-Identifier: MIT
#include "host/library/database/libraryfile.h"

#include "host/library/database/heldfile.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/libraryschema.h"
#include "host/library/records/librarytext.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

/// Offsets in the header of a database file, https://www.sqlite.org/fileformat2.html#the_database_header.
constexpr int HeaderSize = 100;
constexpr int VersionOffset = 60;
constexpr int ApplicationIdOffset = 68;

[[noreturn]] void fail(const QString& message)
{
    throw LibraryError(LibraryStatus::Failed, message);
}

[[noreturn]] void failNewer()
{
    fail(librarytext::tr("The library was made by a newer version of this program."));
}

/// SQLite gives the files beside the database (-wal, -shm) the same rights.
void createForOwner(const QString& path)
{
    const int file =
        ::open(QFile::encodeName(path).constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0)
        ::close(file);
    else if (errno != EEXIST)
        fail(librarytext::tr("The library cannot be created: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
}

/// The header as it is on the disk, read past SQLite because opening a database may already write to it.
void requireHeaderOfOurs(const QString& path)
{
    if (QFileInfo(path).isDir())
        fail(librarytext::tr("The library cannot be opened: it is a folder."));
    const HeldFile file(path);
    if (!file.isOpen())
        fail(librarytext::tr("The library cannot be opened: %1").arg(file.errorString()));
    const QByteArray header = file.head(HeaderSize);
    if (header.size() < HeaderSize || !header.startsWith(QByteArray("SQLite format 3\0", 16)))
        fail(librarytext::tr("The file is no library: it is no database."));
    if (qFromBigEndian<quint32>(header.constData() + ApplicationIdOffset) != libraryschema::ApplicationId)
        fail(librarytext::tr("The file is no library: it is the database of another program."));
    if (qFromBigEndian<qint32>(header.constData() + VersionOffset) > libraryschema::currentVersion())
        failNewer();
}

bool hasLog(const QString& path)
{
    return QFileInfo(path + QStringLiteral("-wal")).size() > 0;
}

int versionOf(LibraryDatabase& database)
{
    return database.number(QStringLiteral("PRAGMA user_version"));
}

/// The write-ahead log may hold a version that the header does not show yet. A connection for reading does not move it.
void requireKnownVersionInLog(const QString& path)
{
    if (!hasLog(path))
        return;
    LibraryDatabase database(path, LibraryDatabase::Access::ReadOnly);
    if (versionOf(database) > libraryschema::currentVersion())
        failNewer();
}

}  // namespace

void libraryfile::requireReadable(const QString& path)
{
    requireHeaderOfOurs(path);
    requireKnownVersionInLog(path);
}

std::unique_ptr<LibraryDatabase> libraryfile::connectTo(const QString& path, LibraryDatabase::Access access)
{
    try {
        auto database = std::make_unique<LibraryDatabase>(path, access);
        // Reading something opens the log.
        (void)versionOf(*database);
        return database;
    } catch (const LibraryError& error) {
        // As SQLite says it for a file system and for a folder. What a log holds must not be passed over.
        const bool cannotMakeLog =
            error.status() == LibraryStatus::NotOpened || error.status() == LibraryStatus::ReadOnly;
        if (!cannotMakeLog || hasLog(path))
            throw;
    }
    return std::make_unique<LibraryDatabase>(path, LibraryDatabase::Access::Frozen);
}

std::unique_ptr<LibraryDatabase> libraryfile::openOrCreate(const QString& path)
{
    createForOwner(path);
    // An empty file is a library whose creation was interrupted. The mark of ours is written with its first
    // transaction, before the write-ahead log is switched on, so that it is in the header of every library.
    const QFileInfo info(path);
    if (!info.exists())
        fail(librarytext::tr("The library cannot be created: the link leads nowhere."));
    if (info.isDir() || info.size() > 0)
        requireReadable(path);
    std::unique_ptr<LibraryDatabase> database = connectTo(path, LibraryDatabase::Access::ReadWrite);
    libraryschema::migrate(*database, libraryschema::steps());
    database->execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    return database;
}
