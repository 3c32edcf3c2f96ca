// SPDX-License-Identifier: MIT
#include "host/library/requests/librarywriter.h"

#include "host/library/database/categorytable.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/tagtable.h"

using Kind = LibraryTransaction::Kind;

LibraryWriter::LibraryWriter(std::unique_ptr<LibraryDatabase> database)
    : m_database(std::move(database))
{
    const LibraryTransaction transaction(*m_database, Kind::Reading);
    m_contents = readContents();
}

LibraryWriter::~LibraryWriter() = default;

/// To be called inside a transaction.
LibraryContents LibraryWriter::readContents()
{
    m_version = m_database->versionOfOthers();
    m_place = changelog::last(*m_database);
    return {tagtable::tags(*m_database), categorytable::categories(*m_database), categorytable::links(*m_database)};
}

LibraryResult LibraryWriter::carryOut(ChangeKind kind, const LibraryRequestBody& body,
                                      const LibraryTransaction::MayWait& mayWait, Others& others)
{
    LibraryResult result;
    try {
        m_database->requireInPlace();
        LibraryTransaction transaction(*m_database, Kind::Writing, mayWait);
        others = readOthers();
        LibraryRequest request{*m_database, m_place.id + 1, result};
        body(request);
        if (result.change.isEmpty())
            return result;
        const changelog::Place place = changelog::append(*m_database, m_place, kind, result.change);
        transaction.commit();
        m_place = place;
        m_database->requireInPlace();
    } catch (const LibraryError& error) {
        result = {};
        result.status = error.status();
        result.message = error.message();
        result.rejectedTags = error.rejectedTags();
        result.rejectedCategories = error.rejectedCategories();
    }
    return result;
}

LibraryWriter::Others LibraryWriter::takeOthers(QString* error)
{
    try {
        m_database->requireInPlace();
        const LibraryTransaction transaction(*m_database, Kind::Reading);
        return readOthers();
    } catch (const LibraryError& failure) {
        *error = failure.message();
        return {};
    }
}

/// To be called inside a transaction, so that nothing comes between the version and what is read.
LibraryWriter::Others LibraryWriter::readOthers()
{
    const qint64 version = m_database->versionOfOthers();
    if (version == m_version)
        return {};
    Others others;
    std::optional<QVector<LibraryChange>> changes = changelog::takeAfter(*m_database, m_place);
    // Emptying the log beside the file counts as a commit as well.
    if (changes && (!changes->isEmpty() || m_database->isTidy()))
        others.changes = *changes;
    else
        others.contents = std::make_shared<const LibraryContents>(readContents());
    m_version = version;
    return others;
}
