// SPDX-License-Identifier: MIT
#include "host/library/computer/computerstate.h"

#include "host/library/computer/datafolder.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/sqlite/ownerfile.h"
#include "host/library/database/sqlite/sqlitedatabase.h"

#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

#include <atomic>
#include <cstdio>

namespace {

// A file of another form has another name, so that older and newer programs do not spoil each other's.
constexpr char fileName[] = "/computer-1.sqlite";

constexpr const char* schema[] = {
    "CREATE TABLE IF NOT EXISTS libraries (file BLOB PRIMARY KEY, library TEXT NOT NULL) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS mounts (library TEXT NOT NULL, root INTEGER NOT NULL, folder BLOB NOT NULL,"
    " PRIMARY KEY (library, root)) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS guesses (library TEXT NOT NULL, root INTEGER NOT NULL,"
    " PRIMARY KEY (library, root)) WITHOUT ROWID",
    "CREATE TABLE IF NOT EXISTS unreadable (library TEXT NOT NULL, root INTEGER NOT NULL, path BLOB NOT NULL,"
    " stamp BLOB NOT NULL, reason TEXT NOT NULL, PRIMARY KEY (library, root, path)) WITHOUT ROWID"};

// Qt binds an array that was never set as NULL.
QByteArray blob(const QByteArray& bytes)
{
    return bytes.isNull() ? QByteArray("") : bytes;
}

constexpr char mountsOfLibrary[] = "SELECT root, folder FROM mounts WHERE library = ?";
constexpr char namedMountsOfLibrary[] = "SELECT root, folder FROM mounts AS m WHERE library = ? AND NOT EXISTS"
                                        " (SELECT 1 FROM guesses AS g WHERE g.library = m.library AND g.root = m.root)";

QHash<qint64, QByteArray> foldersByRoot(LibraryDatabase& database, const char* select, const QString& libraryId)
{
    QHash<qint64, QByteArray> folders;
    LibraryStatement statement(database, select);
    statement.run(libraryId);
    while (statement.next())
        folders.insert(statement.integer(0), statement.bytes(1));
    return folders;
}

std::unique_ptr<SqliteDatabase> connectTo(const QByteArray& path)
{
    const QString name = QFile::decodeName(path);
    (void)createForOwner(name);
    auto database = std::make_unique<SqliteDatabase>(name, SqliteDatabase::Access::ReadWrite);
    database->execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    database->execute(QStringLiteral("PRAGMA synchronous = NORMAL"));
    for (const char* const statement : schema)
        database->execute(QString::fromLatin1(statement));
    return database;
}

void setAside(const QByteArray& path)
{
    rename(path.constData(), QByteArray(path + ".damaged").constData());
    for (const char* const ending : {"-wal", "-shm"})
        unlink(QByteArray(path + ending).constData());
}

/// Once: every operation on a library would meet the same.
void report(const QByteArray& path, const LibraryError& error)
{
    static std::atomic_flag isReported = ATOMIC_FLAG_INIT;
    if (!isReported.test_and_set())
        qWarning("%s: %s", path.constData(), qUtf8Printable(error.message()));
}

std::unique_ptr<SqliteDatabase> openIn(const QByteArray& folder)
{
    if (folder.isEmpty())
        return nullptr;
    const QByteArray path = folder + fileName;
    try {
        return connectTo(path);
    } catch (const LibraryError& error) {
        report(path, error);
        if (error.status() != LibraryStatus::Damaged)
            return nullptr;
    }
    try {
        setAside(path);
        return connectTo(path);
    } catch (const LibraryError&) {
        return nullptr;
    }
}

std::unique_ptr<SqliteDatabase> openTemporary()
{
    static const QTemporaryDir folder;
    return folder.isValid() ? openIn(QFile::encodeName(folder.path())) : nullptr;
}

}  // namespace

ComputerState::ComputerState(const QString& libraryId)
    : m_libraryId(libraryId)
    , m_database(openIn(personalDataFolder()))
{
    if (!m_database)
        m_database = openTemporary();
}

ComputerState::~ComputerState() = default;

template <typename Operation>
void ComputerState::attempt(Operation operation) const
{
    if (!m_database)
        return;
    try {
        operation(*m_database);
    } catch (const LibraryError&) {
        // As promised: nothing depends on it.
    }
}

QVector<KnownLibrary> ComputerState::knownLibraries()
{
    QVector<KnownLibrary> known;
    ComputerState({}).attempt([&known](LibraryDatabase& database) {
        LibraryStatement select(database, "SELECT file, library FROM libraries ORDER BY file");
        select.run();
        while (select.next())
            known.append({select.bytes(0), QString::fromUtf8(select.bytes(1)), {}});
        for (KnownLibrary& library : known)
            library.mounts = foldersByRoot(database, namedMountsOfLibrary, library.id);
    });
    return known;
}

void ComputerState::noteFile(const QByteArray& file)
{
    attempt([&](LibraryDatabase& database) {
        LibraryStatement(database, "INSERT OR REPLACE INTO libraries (file, library) VALUES (?, ?)")
            .run(file, m_libraryId);
    });
}

QHash<qint64, QByteArray> ComputerState::mounts() const
{
    QHash<qint64, QByteArray> folders;
    attempt([&](LibraryDatabase& database) { folders = foldersByRoot(database, mountsOfLibrary, m_libraryId); });
    return folders;
}

QHash<qint64, QByteArray> ComputerState::namedMounts() const
{
    QHash<qint64, QByteArray> folders;
    attempt([&](LibraryDatabase& database) { folders = foldersByRoot(database, namedMountsOfLibrary, m_libraryId); });
    return folders;
}

void ComputerState::setMount(qint64 rootId, const QByteArray& folder)
{
    mount(rootId, folder, "DELETE FROM guesses WHERE library = ? AND root = ?");
}

void ComputerState::setGuessedMount(qint64 rootId, const QByteArray& folder)
{
    mount(rootId, folder, "INSERT OR REPLACE INTO guesses (library, root) VALUES (?, ?)");
}

void ComputerState::mount(qint64 rootId, const QByteArray& folder, const char* noteGuess)
{
    attempt([&](LibraryDatabase& database) {
        LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing);
        LibraryStatement(database, "INSERT OR REPLACE INTO mounts (library, root, folder) VALUES (?, ?, ?)")
            .run(m_libraryId, rootId, folder);
        LibraryStatement(database, noteGuess).run(m_libraryId, rootId);
        transaction.commit();
    });
}

void ComputerState::removeRoot(qint64 rootId)
{
    attempt([&](LibraryDatabase& database) {
        LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing);
        for (const char* const remove :
             {"DELETE FROM mounts WHERE library = ? AND root = ?", "DELETE FROM guesses WHERE library = ? AND root = ?",
              "DELETE FROM unreadable WHERE library = ? AND root = ?"})
            LibraryStatement(database, remove).run(m_libraryId, rootId);
        transaction.commit();
    });
}

QHash<QByteArray, UnreadableFile> ComputerState::unreadable(qint64 rootId, const QByteArray& folder) const
{
    QHash<QByteArray, UnreadableFile> files;
    attempt([&](LibraryDatabase& database) {
        LibraryStatement select(database, "SELECT path, stamp, reason FROM unreadable WHERE library = ? AND root = ?"
                                          " AND (? OR path = ? OR (path > ? AND path < ?))");
        select.run(m_libraryId, rootId, folder.isEmpty(), blob(folder), QByteArray(folder + '/'),
                   QByteArray(folder + char('/' + 1)));
        while (select.next())
            files.insert(select.bytes(0), {select.bytes(0), select.bytes(1), QString::fromUtf8(select.bytes(2))});
    });
    return files;
}

void ComputerState::setUnreadable(qint64 rootId, const QByteArray& folder, const QVector<UnreadableFile>& files)
{
    attempt([&](LibraryDatabase& database) {
        LibraryTransaction transaction(database, LibraryTransaction::Kind::Writing);
        LibraryStatement(database, "DELETE FROM unreadable WHERE library = ? AND root = ?"
                                   " AND (? OR path = ? OR (path > ? AND path < ?))")
            .run(m_libraryId, rootId, folder.isEmpty(), blob(folder), QByteArray(folder + '/'),
                 QByteArray(folder + char('/' + 1)));
        LibraryStatement insert(database, "INSERT OR REPLACE INTO unreadable (library, root, path, stamp, reason)"
                                          " VALUES (?, ?, ?, ?, ?)");
        for (const UnreadableFile& file : files)
            insert.run(m_libraryId, rootId, blob(file.path), blob(file.stamp), file.reason);
        transaction.commit();
    });
}
