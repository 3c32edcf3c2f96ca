// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class FolderWalk;

/// Sorts the files of a library that a walk did not meet: those whose disk may not be connected, and those that are
/// missing though the folders around them are there.
class VanishedFiles
{
public:
    /// \a walk is complete and outlives this object.
    explicit VanishedFiles(const FolderWalk& walk);

    /// Counts the file at \a path; true when it is missing. One look at the disk for a file that was not met.
    bool add(const QByteArray& path);

    [[nodiscard]] int missing() const { return m_missing; }
    [[nodiscard]] int away() const { return m_away; }

private:
    const FolderWalk& m_walk;
    int m_missing = 0;
    int m_away = 0;
};
