// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/sqlitedatabase.h"

#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/sqlite/sqliteerror.h"
#include "host/library/records/librarytext.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSqlError>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int readingTimeout = 5000;  // Milliseconds.
/// Milliseconds of one attempt to get the write lock, and so the longest that a cancelled request still waits.
constexpr int writingTimeout = 200;
/// Pages of the log, 4 KB each, after which a commit brings them into the file. An import writes the same pages again
/// and again; with SQLite's 1000 each goes into the file several times.
constexpr int pagesOfLog = 8000;

/// https://www.sqlite.org/uri.html
QString frozenUri(const QString& path)
{
    return QStringLiteral("file://%1?immutable=1").arg(QString::fromLatin1(QUrl::toPercentEncoding(path, "/")));
}

}  // namespace

SqliteDatabase::SqliteDatabase(const QString& path, Access access)
    : LibraryDatabase(QStringLiteral("QSQLITE"))
    , m_path(path)
    , m_access(access)
    , m_file(path)
    , m_sharedMemory(QFile::encodeName(path) + "-shm")
{
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(readingTimeout);
    if (access != Access::ReadWrite)
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    if (access == Access::Frozen)
        options += QStringLiteral(";QSQLITE_OPEN_URI");
    connection().setConnectOptions(options);
    connection().setDatabaseName(access == Access::Frozen ? frozenUri(path) : path);
    try {
        configure();
    } catch (const LibraryError&) {
        close();
        throw;
    }
}

SqliteDatabase::~SqliteDatabase()
{
    // Closing looks at the shared memory, too.
    SqliteDatabase::repairFiles();
    close();
}

void SqliteDatabase::configure()
{
    if (!connection().open())
        throw sqliteError(connection().lastError());
    execute(QStringLiteral("PRAGMA trusted_schema = OFF"));
    execute(QStringLiteral("PRAGMA temp_store = MEMORY"));
    if (m_access != Access::ReadWrite)
        return;
    execute(QStringLiteral("PRAGMA foreign_keys = ON"));
    execute(QStringLiteral("PRAGMA synchronous = FULL"));
    execute(QStringLiteral("PRAGMA wal_autocheckpoint = %1").arg(pagesOfLog));
}

bool SqliteDatabase::checkpoint()
{
    execute(QStringLiteral("PRAGMA busy_timeout = 0"));
    // Without it, who waits for a lock would ask for it all the time.
    const auto restored = qScopeGuard([this] {
        try {
            execute(QStringLiteral("PRAGMA busy_timeout = %1").arg(writingTimeout));
        } catch (const LibraryError&) {
            // Only without memory.
        }
    });
    // The first column says whether somebody was in the way.
    return number(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")) == 0;
}

void SqliteDatabase::beginWriting(const std::function<bool()>& mayWait)
{
    if (!m_hasWritten)
        execute(QStringLiteral("PRAGMA busy_timeout = %1").arg(writingTimeout));
    m_hasWritten = true;
    for (;;) {
        try {
            LibraryStatement(*this, "BEGIN IMMEDIATE").run();
            return;
        } catch (const LibraryError& error) {
            if (error.status() != LibraryStatus::Locked || !mayWait())
                throw;
        }
    }
}

qint64 SqliteDatabase::foreignVersion()
{
    LibraryStatement select(*this, "PRAGMA data_version");
    return select.run().next() ? select.integer(0) : 0;
}

/// Reading what was cut off the shared memory would end this program (SIGBUS). Nothing in it lasts: filled with zeros,
/// it is made anew from the log. By its name, since closing a descriptor of it would give up the locks on it.
void SqliteDatabase::repairFiles()
{
    struct stat status = {};
    if (::stat(m_sharedMemory.constData(), &status) != 0)
        return;
    const bool isCut = status.st_size < m_sharedSize;
    if (!isCut || ::truncate(m_sharedMemory.constData(), 0) != 0 ||
        ::truncate(m_sharedMemory.constData(), m_sharedSize) != 0)
        m_sharedSize = status.st_size;
}

void SqliteDatabase::requireInPlace()
{
    if (m_file.isAt(m_path))
        return;
    giveUpLog();
    throw LibraryError(LibraryStatus::Moved,
                       LibraryText::tr("The library's file was moved, deleted or replaced. Nothing is written until "
                                       "it is opened again."));
}

bool SqliteDatabase::hasFileChanged()
{
    if (m_file.stamp() == m_accepted)
        return false;
    execute(QStringLiteral("PRAGMA shrink_memory"));
    return true;
}

void SqliteDatabase::acceptFile()
{
    m_accepted = m_file.stamp();
}

/// The log is found by its name: whoever opens the file that took the place would take it for a part of that one.
void SqliteDatabase::giveUpLog()
{
    try {
        if (m_access == Access::ReadWrite)
            checkpoint();
    } catch (const LibraryError&) {
        // What made it fail is no reason to go on writing.
    }
}

/// A log that is left beside the file would be taken for a part of a backup that is put in the file's place.
void SqliteDatabase::tidy()
{
    if (!m_hasWritten || !m_file.isAt(m_path) || m_file.stamp() != m_accepted || !checkpoint())
        return;
    m_hasWritten = false;
    acceptFile();
}

bool SqliteDatabase::isTidy() const
{
    return QFileInfo(m_path + QStringLiteral("-wal")).size() == 0;
}

LibraryError SqliteDatabase::errorOf(const QSqlError& error) const
{
    return sqliteError(error);
}
