// SPDX-License-Identifier: MIT
#include "host/library/database/libraryerror.h"

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
    Full = 13,
    CannotOpen = 14
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
    default:
        return LibraryStatus::Failed;
    }
}

QString messageOf(const QSqlError& error)
{
    switch (statusOf(error)) {
    case LibraryStatus::Locked:
        return librarytext::tr("The library is locked by another program.");
    case LibraryStatus::ReadOnly:
        return librarytext::tr("The library cannot be changed: its file is read-only.");
    case LibraryStatus::DiskFull:
        return librarytext::tr("The disk that holds the library is full.");
    case LibraryStatus::DiskError:
        return librarytext::tr("The disk that holds the library failed: %1").arg(error.databaseText());
    case LibraryStatus::NotOpened:
        return librarytext::tr("The library cannot be opened: its file, or the log beside it, cannot be read.");
    default:
        return librarytext::tr("The library failed: %1")
            .arg(error.databaseText().isEmpty() ? error.driverText() : error.databaseText());
    }
}

}  // namespace

LibraryError::LibraryError(LibraryStatus status, const QString& message)
    : m_status(status)
    , m_message(message)
{
}

LibraryError::LibraryError(const QSqlError& error)
    : LibraryError(statusOf(error), messageOf(error))
{
}

LibraryError& LibraryError::rejectTags(const QVector<TagRow>& tags)
{
    m_rejectedTags = tags;
    return *this;
}

LibraryError& LibraryError::rejectCategories(const QVector<CategoryRow>& categories)
{
    m_rejectedCategories = categories;
    return *this;
}
