// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/filequery.h"
#include "host/library/records/libraryrecords.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>

class LibraryDatabase;

/// Reads a library with a connection of its own, waiting for the answers: for lists on the command line, for an
/// importer that looks up what it knows already, and for the reading thread of an open library.
///
/// To be used on the thread that opened it. It never writes, and sees what is committed when each call begins. A call
/// that fails answers empty and leaves the reason in lastError().
class LibraryReader
{
public:
    /// Called for each file; returns false to stop.
    using FileVisitor = std::function<bool(const FileRow& file)>;

    /// Null when there is no library at \a path, with the reason in \a error when given. Never creates a file.
    static std::unique_ptr<LibraryReader> open(const QString& path, QString* error = nullptr);
    ~LibraryReader();

    /// Every tag with its number of files, by id. Counts all links once.
    [[nodiscard]] QVector<TagRow> tags();
    /// The favourites and the user categories, by id.
    [[nodiscard]] QVector<CategoryRow> categories();
    /// Every link between a tag and a category, favourites included.
    [[nodiscard]] QVector<TagLink> tagLinks();
    [[nodiscard]] LibraryTotals totals();

    /// Visits every file with its tag ids, ordered by path, without holding them all in memory.
    void forEachFile(const FileVisitor& visitor);
    /// The ids of the files asked for, ordered by path.
    [[nodiscard]] QVector<qint64> fileIds(const FileQuery& query);
    /// The files with these ids, in that order, without tag ids; unknown ids are left out.
    [[nodiscard]] QVector<FileRow> files(const QVector<qint64>& ids);

    /// What is known of those of \a paths that the library holds. One look-up in an index for each.
    [[nodiscard]] QHash<QByteArray, FileState> fileStates(const QVector<QByteArray>& paths);
    /// At most \a limit paths of the library's files below \a folder (at any depth), in byte order, that follow
    /// \a after; start with an empty \a after and go on with the last path. For finding files that vanished.
    [[nodiscard]] QVector<QByteArray> pathsBelow(const QByteArray& folder, const QByteArray& after, int limit);

    /// Why the last call failed; empty when it succeeded.
    [[nodiscard]] QString lastError() const;

private:
    explicit LibraryReader(std::unique_ptr<LibraryDatabase> database);

    template <typename Read>
    auto guarded(Read read) -> decltype(read());

    std::unique_ptr<LibraryDatabase> m_database;
    QString m_lastError;
};
