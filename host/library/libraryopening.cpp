// SPDX-License-Identifier: MIT
#include "host/library/libraryopening.h"

#include "host/library/computer/computerstate.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarytable.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/sqlite/sqlitelibrary.h"
#include "host/library/records/librarytext.h"

using Access = SqliteDatabase::Access;

libraryopening::Opened libraryopening::openOrCreate(const QString& path)
{
    Opened opened;
    opened.path = sqlitelibrary::resolved(path);
    opened.database =
        sqlitelibrary::openOrCreate(opened.path, [](const QString& id, const version1::Migrated& migrated) {
            if (migrated.rootId != 0)
                ComputerState(id).setGuessedMount(migrated.rootId, migrated.folder);
        });
    opened.id = librarytable::id(*opened.database);
    return opened;
}

QStringList libraryopening::takeUpgradeNotices(const QString& path)
{
    QStringList notes;
    try {
        const std::unique_ptr<LibraryDatabase> database = connectForWriting(path);
        for (const QString& name : librarytable::namesReplaced(*database))
            notes.append(
                LibraryText::tr("A name had characters that no name may have. It is called \"%1\" now.").arg(name));
        if (notes.isEmpty())
            return notes;
        LibraryTransaction transaction(*database, LibraryTransaction::Kind::Writing);
        librarytable::forgetNamesReplaced(*database);
        transaction.commit();
    } catch (const LibraryError&) {
        // They are shown once more the next time.
    }
    return notes;
}

std::unique_ptr<LibraryDatabase> libraryopening::connectForWriting(const QString& path)
{
    return sqlitelibrary::connectTo(path, Access::ReadWrite);
}

bool libraryopening::isCurrent(const QString& path)
{
    return !sqlitelibrary::needsOpening(sqlitelibrary::resolved(path));
}

std::unique_ptr<LibraryDatabase> libraryopening::openForReading(const QString& path)
{
    const QString file = sqlitelibrary::resolved(path);
    if (sqlitelibrary::needsOpening(file))
        (void)openOrCreate(file);
    return sqlitelibrary::connectTo(file, Access::ReadOnly);
}
