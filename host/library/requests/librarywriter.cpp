// SPDX-License-Identifier: MIT
#include "host/library/requests/librarywriter.h"

#include "host/library/database/categorytable.h"
#include "host/library/database/librarydatabase.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarytable.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/librarytext.h"

using Kind = LibraryTransaction::Kind;

namespace {

LibraryResult resultOf(const LibraryError& error)
{
    LibraryResult result;
    result.status = error.status();
    result.message = error.message();
    result.rejectedTags = error.rejectedTags();
    result.rejectedCategories = error.rejectedCategories();
    return result;
}

}  // namespace

LibraryWriter::LibraryWriter(std::unique_ptr<LibraryDatabase> database)
    : m_database(std::move(database))
{
    const LibraryTransaction transaction(*m_database, Kind::Reading);
    m_id = librarytable::id(*m_database);
    m_contents = readContents();
    m_database->acceptFile();
    m_database->guard();
}

LibraryWriter::~LibraryWriter() = default;

/// To be called inside a transaction.
LibraryContents LibraryWriter::readContents()
{
    m_version = m_database->foreignVersion();
    m_place = changelog::last(*m_database);
    return {tagtable::tags(*m_database), categorytable::categories(*m_database), categorytable::links(*m_database)};
}

LibraryResult LibraryWriter::rehearse(const LibraryRequestBody& body, const LibraryTransaction::MayWait& mayWait)
{
    LibraryResult result;
    try {
        const LibraryTransaction transaction(*m_database, Kind::Writing, mayWait);
        LibraryRequest request{*m_database, m_place.id + 1, result};
        body(request);
    } catch (const LibraryError& error) {
        result = resultOf(error);
    }
    return result;
}

LibraryResult LibraryWriter::carryOut(ChangeKind kind, const LibraryRequestBody& body,
                                      const LibraryTransaction::MayWait& mayWait, ForeignChanges& foreign)
{
    LibraryResult result;
    try {
        m_database->guard();
        m_database->requireInPlace();
        const bool hasFileChanged = m_database->hasFileChanged();
        LibraryTransaction transaction(*m_database, Kind::Writing, mayWait);
        if (hasFileChanged)
            requireSameLibrary();
        foreign = readForeignChanges();
        LibraryRequest request{*m_database, m_place.id + 1, result};
        body(request);
        if (result.change.isEmpty())
            return result;
        const changelog::Place place = changelog::append(*m_database, m_place, kind, result.change);
        transaction.commit();
        m_place = place;
        m_database->requireInPlace();
    } catch (const LibraryError& error) {
        result = resultOf(error);
    }
    return result;
}

LibraryWriter::ForeignChanges LibraryWriter::takeForeignChanges(QString* error)
{
    try {
        m_database->guard();
        m_database->requireInPlace();
        const bool hasFileChanged = m_database->hasFileChanged();
        const LibraryTransaction transaction(*m_database, Kind::Reading);
        if (hasFileChanged)
            requireSameLibrary();
        return readForeignChanges();
    } catch (const LibraryError& failure) {
        *error = failure.message();
        return {};
    }
}

/// A file that was copied over the library's own is found at its place and has its inode. To be called inside a
/// transaction.
void LibraryWriter::requireSameLibrary()
{
    if (librarytable::id(*m_database) != m_id || !changelog::isLogOf(*m_database, m_place))
        throw LibraryError(LibraryStatus::Moved,
                           LibraryText::tr("Another library was written over this one. Nothing is written until it is "
                                           "opened again."));
    m_database->acceptFile();
}

/// To be called inside a transaction, so that nothing comes between the version and what is read.
LibraryWriter::ForeignChanges LibraryWriter::readForeignChanges()
{
    const qint64 version = m_database->foreignVersion();
    if (version == m_version)
        return {};
    ForeignChanges foreign;
    std::optional<QVector<LibraryChange>> changes = changelog::takeAfter(*m_database, m_place);
    // Emptying the log beside the file counts as a commit as well.
    if (changes && (!changes->isEmpty() || m_database->isTidy()))
        foreign.changes = *changes;
    else
        foreign.contents = std::make_shared<const LibraryContents>(readContents());
    m_version = version;
    return foreign;
}
