// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/importoutcome.h"
#include "host/library/records/libraryrecords.h"

#include <QHash>

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
    /// \a library outlives the target.
    explicit ImportTarget(Library* library);
    ~ImportTarget();

    /// \a folder: without links, with no slash at its end.
    [[nodiscard]] bool open(const QByteArray& folder);
    [[nodiscard]] QString libraryId() const;
    /// The root that the folder belongs to, and the folder's path in it; set by open().
    [[nodiscard]] qint64 rootId() const { return m_rootId; }
    [[nodiscard]] const QByteArray& folderInRoot() const { return m_folderInRoot; }
    /// What the library knows of those of \a paths that it holds.
    [[nodiscard]] QHash<QByteArray, FileState> states(const QVector<QByteArray>& paths);
    /// At most \a limit files of the library in the folder, in byte order, that follow \a after.
    [[nodiscard]] QVector<QByteArray> pathsAfter(const QByteArray& after, int limit);
    [[nodiscard]] LibraryTotals totals();

    ImportOutcome write(const QVector<ImportedFile>& files);
    ImportOutcome forget(const QVector<QByteArray>& paths);

    [[nodiscard]] const QString& error() const { return m_error; }

private:
    Library* m_library;
    std::unique_ptr<LibraryReader> m_reader;
    QByteArray m_folder;
    qint64 m_rootId = 0;
    QByteArray m_folderInRoot;
    QString m_error;
};
