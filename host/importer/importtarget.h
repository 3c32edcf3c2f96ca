// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryresult.h"

#include <QHash>

#include <atomic>
#include <memory>

class Library;
class LibraryReader;

/// The part of a library that one import is about: what it knows of the pictures in one folder, and the way of batches
/// into it. Paths are absolute. Waits for the library; to be used on the import's thread.
///
/// A call that fails answers empty or false, and leaves the reason in error().
class ImportTarget
{
public:
    /// \a library and \a cancelled outlive the target. Until the flag is set, locks of other programs are waited for.
    ImportTarget(Library* library, const std::atomic_bool& cancelled);
    ~ImportTarget();

    /// \a folder: without links, with no slash at its end.
    [[nodiscard]] bool open(const QByteArray& folder);
    [[nodiscard]] QString libraryId() const;
    /// The root that the folder belongs to, and the folder's path in it; set by open().
    [[nodiscard]] qint64 rootId() const { return m_rootId; }
    [[nodiscard]] const QByteArray& folderInRoot() const { return m_folderInRoot; }
    /// What the library knows of those of \a paths that it holds.
    [[nodiscard]] QHash<QByteArray, KnownFile> states(const QVector<QByteArray>& paths);
    /// At most \a limit files of the library in the folder, in byte order, that follow \a after.
    [[nodiscard]] QVector<QByteArray> pathsAfter(const QByteArray& after, int limit);
    [[nodiscard]] LibraryTotals totals();

    LibraryResult write(QVector<ImportedFile> files);
    /// At the end of each import.
    LibraryResult settle();
    LibraryResult forget(const QVector<QByteArray>& paths);

    [[nodiscard]] const QString& error() const { return m_error; }

private:
    template <typename Request>
    [[nodiscard]] LibraryResult untilUnlocked(Request request) const;
    [[nodiscard]] QByteArray pathInRoot(const QByteArray& path) const;
    [[nodiscard]] QVector<QByteArray> pathsInRoot(const QVector<QByteArray>& paths) const;
    [[nodiscard]] QByteArray pathOf(const QByteArray& pathInRoot) const;

    Library* m_library;
    const std::atomic_bool& m_cancelled;
    std::unique_ptr<LibraryReader> m_reader;
    QByteArray m_folder;
    qint64 m_rootId = 0;
    QByteArray m_folderInRoot;
    QString m_error;
};
