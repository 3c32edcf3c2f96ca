// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/librarycopy.h"

#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/sqlite/ownerfile.h"
#include "host/library/database/sqlite/sqlitedatabase.h"
#include "host/library/records/librarytext.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace {

[[noreturn]] void fail(const QString& reason)
{
    throw LibraryError(LibraryStatus::Failed, LibraryText::tr("The library cannot be copied: %1").arg(reason));
}

bool reachesDisk(const QString& path, int flags)
{
    const int file = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    const bool synced = file >= 0 && ::fsync(file) == 0;
    if (file >= 0)
        ::close(file);
    return synced;
}

/// A library's name is never one that SQLite takes for an empty place to write to: that would not be there.
void copyTo(SqliteDatabase& database, const QString& name)
{
    QFile::remove(name);
    if (const int failure = createForOwner(name); failure != 0)
        fail(qt_error_string(failure));
    LibraryStatement(database, "VACUUM INTO ?").run(name);
    SqliteDatabase copy(name, SqliteDatabase::Access::ReadOnly);
    LibraryStatement check(copy, "PRAGMA quick_check(1)");
    if (!check.run().next() || check.bytes(0) != "ok")
        fail(LibraryText::tr("it is damaged"));
}

}  // namespace

LibraryCopy::LibraryCopy(SqliteDatabase& database, const QString& path, const QString& suffix)
    : m_path(path + suffix)
{
    const QString unfinished = QStringLiteral("%1%2.%3").arg(path, suffix).arg(::getpid());
    try {
        copyTo(database, unfinished);
        if (!reachesDisk(unfinished, O_RDONLY))
            fail(qt_error_string(errno));
        for (int number = 2; !QFile::rename(unfinished, m_path); ++number) {
            if (!QFileInfo::exists(m_path))
                fail(qt_error_string(errno));
            m_path = QStringLiteral("%1%2.%3").arg(path, suffix).arg(number);
        }
        if (!reachesDisk(QFileInfo(path).absolutePath(), O_RDONLY | O_DIRECTORY))
            fail(qt_error_string(errno));
    } catch (const LibraryError&) {
        QFile::remove(unfinished);
        throw;
    }
}

void LibraryCopy::remove() const
{
    QFile::remove(m_path);
}
