// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/sqliteerror.h"

#include "host/library/records/librarytext.h"

#include <QSqlError>

namespace {

/// Primary result codes of SQLite, https://www.sqlite.org/rescode.html.
enum ResultCode
{
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    IoError = 10,
    Corrupt = 11,
    Full = 13,
    CannotOpen = 14,
    NotADatabase = 26
};

LibraryStatus statusOf(const QSqlError& error)
{
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case Busy:
    case Locked:
        return LibraryStatus::Locked;
    case ReadOnly:
        return LibraryStatus::ReadOnly;
    case IoError:
        return LibraryStatus::DiskError;
    case Full:
        return LibraryStatus::DiskFull;
    case CannotOpen:
        return LibraryStatus::NotOpened;
    case Corrupt:
    case NotADatabase:
        return LibraryStatus::Damaged;
    default:
        return LibraryStatus::Failed;
    }
}

QString messageOf(const QSqlError& error)
{
    switch (statusOf(error)) {
    case LibraryStatus::Locked:
        return LibraryText::tr("The library is locked by another program.");
    case LibraryStatus::ReadOnly:
        return LibraryText::tr("The library cannot be changed: its file is read-only.");
    case LibraryStatus::DiskFull:
        return LibraryText::tr("The disk that holds the library is full.");
    case LibraryStatus::DiskError:
        return LibraryText::tr("The disk that holds the library failed: %1").arg(error.databaseText());
    case LibraryStatus::NotOpened:
        return LibraryText::tr("The library cannot be opened: its file, or the log beside it, cannot be read.");
    case LibraryStatus::Damaged:
        return LibraryText::tr("The library is damaged: %1").arg(error.databaseText());
    default:
        return LibraryText::tr("The library failed: %1")
            .arg(error.databaseText().isEmpty() ? error.driverText() : error.databaseText());
    }
}

}  // namespace

LibraryError sqliteError(const QSqlError& error)
{
    return {statusOf(error), messageOf(error)};
}
