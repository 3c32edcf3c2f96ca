// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/librarydatabase.h"
#include "host/library/database/librarysnapshot.h"

#include <QElapsedTimer>

#include <memory>
#include <optional>

/// The connection that carries out requests, and what it told the view so far, so that it can tell what other programs
/// changed in the same file. To be used and destroyed on the thread that made it.
class LibraryWriter
{
public:
    /// Opens the existing library \a path, an absolute path, and reads it. Throws a LibraryError.
    explicit LibraryWriter(const QString& path);

    [[nodiscard]] LibraryDatabase& database() { return *m_database; }
    /// What the view holds after every change that it was told.
    [[nodiscard]] const LibrarySnapshot& known() const { return m_known; }

    /// To be called with each change of a request of this connection.
    void noteOwnChange(const LibraryChange& change);
    /// What other programs committed since the last call, or nothing. A look costs microseconds, a change that was
    /// found a reading of all tags; while another program writes on and on, at most a quarter of the time is spent
    /// reading, and the rest is told later. Never throws: what cannot be read now is read next time.
    [[nodiscard]] std::optional<LibraryChange> takeOutsideChange();

private:
    [[nodiscard]] LibraryChange readAgain(int version);
    [[nodiscard]] bool mayRead() const;

    std::unique_ptr<LibraryDatabase> m_database;
    int m_version;  ///< Of the data that m_known was read from, as this connection counts others' commits.
    LibrarySnapshot m_known;
    QElapsedTimer m_sinceReading;
    qint64 m_readingTime = 0;  ///< Milliseconds.
};
