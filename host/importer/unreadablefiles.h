// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/computer/computerstate.h"

#include <functional>

/// The files of a folder that could not be read at earlier imports on this computer, and those that this one meets.
/// One that is unchanged since is neither read nor reported again. Paths are absolute.
class UnreadableFiles
{
public:
    /// Reads what is known of the files in \a folder, which is \a folderInRoot of the root.
    UnreadableFiles(ComputerState& state, qint64 rootId, const QByteArray& folderInRoot, const QByteArray& folder);

    /// Whether the file could not be read before and looks as it did then; it stays noted then.
    [[nodiscard]] bool isKnown(const QByteArray& path, const QByteArray& stamp);
    /// Notes a file that cannot be read. True when that is new, false when it was so before.
    bool note(const QByteArray& path, const QByteArray& stamp, const QString& reason);
    /// Files that cannot be read and were known before.
    [[nodiscard]] int known() const { return m_known; }

    /// Writes what was noted, and what was known of files for which \a wasSeen is false. Any other can be read now.
    void save(const std::function<bool(const QByteArray& path)>& wasSeen);

private:
    [[nodiscard]] QByteArray relative(const QByteArray& path) const;
    [[nodiscard]] QByteArray absolute(const QByteArray& name) const;

    ComputerState& m_state;
    qint64 m_rootId;
    QByteArray m_folderInRoot;
    QByteArray m_folder;
    QHash<QByteArray, UnreadableFile> m_before;  // By path relative to the root.
    QHash<QByteArray, UnreadableFile> m_now;
    int m_known = 0;
};
