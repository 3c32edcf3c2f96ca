// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/changelog.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/records/librarycontents.h"
#include "host/library/requests/libraryrequest.h"

#include <memory>

class LibraryDatabase;

/// The connection that carries out requests, one transaction each, and follows what other programs do to the same
/// library. To be used and destroyed on the thread that made it; nothing but the constructor throws.
///
/// Each transaction leaves its change in the library's log, and the changes of others are read from there.
class LibraryWriter
{
public:
    /// What other programs committed: as changes in their order or, when the log does not hold them, as all contents.
    struct ForeignChanges
    {
        QVector<LibraryChange> changes;
        std::shared_ptr<const LibraryContents> contents;

        [[nodiscard]] bool isEmpty() const { return changes.isEmpty() && !contents; }
    };

    /// Reads all tags and categories; throws a LibraryError.
    explicit LibraryWriter(std::unique_ptr<LibraryDatabase> database);
    ~LibraryWriter();

    [[nodiscard]] LibraryDatabase& database() { return *m_database; }
    /// What the constructor read; gives it away.
    [[nodiscard]] LibraryContents takeContents() { return std::move(m_contents); }

    /// Carries out one request. While another program holds the library locked, \a mayWait is asked now and then.
    /// \a others gets what was committed by others before it.
    [[nodiscard]] LibraryResult carryOut(ChangeKind kind, const LibraryRequestBody& body,
                                         const LibraryTransaction::MayWait& mayWait, ForeignChanges& foreign);
    /// What the request would do; nothing is committed.
    [[nodiscard]] LibraryResult rehearse(const LibraryRequestBody& body, const LibraryTransaction::MayWait& mayWait);
    /// What others committed since the last call or request. Costs microseconds when there is nothing. What cannot be
    /// read now is read the next time; \a error says why.
    [[nodiscard]] ForeignChanges takeForeignChanges(QString* error);

private:
    [[nodiscard]] LibraryContents readContents();
    [[nodiscard]] ForeignChanges readForeignChanges();
    void requireSameLibrary();

    std::unique_ptr<LibraryDatabase> m_database;
    LibraryContents m_contents;
    QString m_id;              ///< See librarytable::id().
    changelog::Place m_place;  ///< In the log, up to which everything is known.
    qint64 m_version = 0;      ///< Of other programs' commits, see LibraryDatabase::foreignVersion().
};
