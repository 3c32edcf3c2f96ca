// SPDX-License-Identifier: MIT
#include "host/library/librarywriter.h"

#include "host/library/database/libraryerror.h"
#include "host/library/database/libraryfile.h"
#include "host/library/database/librarystatement.h"

#include <utility>

namespace {

/// A number that changes when somebody else commits, and not with this connection's own commits.
int dataVersion(LibraryDatabase& database)
{
    LibraryStatement select(database, "PRAGMA data_version");
    return select.run().next() ? static_cast<int>(select.integer(0)) : 0;
}

}  // namespace

LibraryWriter::LibraryWriter(const QString& path)
    : m_database(libraryfile::connectTo(path, LibraryDatabase::Access::ReadWrite))
    , m_version(dataVersion(*m_database))
    , m_known(LibrarySnapshot::read(*m_database))
{
}

void LibraryWriter::noteOwnChange(const LibraryChange& change)
{
    m_known.apply(change);
}

std::optional<LibraryChange> LibraryWriter::takeOutsideChange()
{
    try {
        const int version = dataVersion(*m_database);
        if (version == m_version || !mayRead())
            return std::nullopt;
        return readAgain(version);
    } catch (const LibraryError&) {
        return std::nullopt;
    }
}

/// A commit that comes between the look at the version and the reading is found again by the next look, and changes
/// nothing then.
LibraryChange LibraryWriter::readAgain(int version)
{
    QElapsedTimer timer;
    timer.start();
    LibrarySnapshot stored = LibrarySnapshot::read(*m_database);
    LibraryChange change = m_known.changeTo(stored);
    // Which files the tags have may be other than before, though there are as many.
    change.filesChanged = true;
    m_known = std::move(stored);
    m_version = version;
    m_readingTime = timer.elapsed();
    m_sinceReading.start();
    return change;
}

bool LibraryWriter::mayRead() const
{
    return !m_sinceReading.isValid() || m_sinceReading.elapsed() >= 3 * m_readingTime;
}
