// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryresult.h"

#include <atomic>
#include <functional>
#include <memory>

class Library;
class ReadOnlyLibrary;

/// The part of a library that one import is about: what it knows of the pictures in one folder, and the way of batches
/// into it. Paths are absolute. Waits for the library; to be used on the import's thread.
///
/// A call that fails returns an empty value or false; error() has the reason.
class ImportTarget
{
public:
    /// \a library and \a cancelled outlive the target. Until the flag is set, locks of other programs are waited for.
    ImportTarget(Library* library, const std::atomic_bool& cancelled);
    ~ImportTarget();

    /// \a folder: without links, with no slash at its end. False without a reason in error() when it was cancelled.
    [[nodiscard]] bool open(const QByteArray& folder);
    [[nodiscard]] QString libraryId() const;
    /// The root that the folder belongs to, and the folder's path in it; set by open().
    [[nodiscard]] qint64 rootId() const { return m_rootId; }
    [[nodiscard]] const QByteArray& folderInRoot() const { return m_folderInRoot; }
    /// Visits the library's files in the folder by path, in byte order, until \a visitor returns false. False when they
    /// cannot be read.
    bool forEachFile(const std::function<bool(const QByteArray& path, const KnownFile& known)>& visitor);
    /// Zeros where there is no library to read.
    [[nodiscard]] LibraryTotals totals();

    LibraryResult write(QVector<ImportedFile> files);
    /// At the end of each import.
    LibraryResult settle();
    LibraryResult forget(const QVector<QByteArray>& paths);

    [[nodiscard]] const QString& error() const { return m_error; }

private:
    [[nodiscard]] QByteArray pathInRoot(const QByteArray& path) const;
    [[nodiscard]] QByteArray pathOf(const QByteArray& pathInRoot) const;

    Library* m_library;
    const std::atomic_bool& m_cancelled;
    std::unique_ptr<ReadOnlyLibrary> m_reader;
    QByteArray m_folder;
    qint64 m_rootId = 0;
    QByteArray m_folderInRoot;
    QString m_error;
};
