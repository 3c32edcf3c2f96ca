// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/query/filequery.h"
#include "host/library/records/libraryresult.h"

#include <QString>

#include <functional>
#include <memory>

class ComputerState;
class LibraryDatabase;
class LibraryTransaction;

/// Reads a library with a connection of its own, waiting for the answers: for lists on the command line, for an
/// importer that looks up what it knows already, and for the reading thread of an open library.
///
/// To be used on the thread that opened it. It never writes, and sees what is committed when each call begins, or when
/// a Snapshot was made.
class ReadOnlyLibrary
{
public:
    /// Called for each file; returns false to stop.
    using FileVisitor = std::function<bool(const FileRow& file)>;

    /// While it lives, all reads see the library at one moment. One at a time; does not outlive the reader.
    class Snapshot
    {
    public:
        explicit Snapshot(ReadOnlyLibrary& reader);
        ~Snapshot();

    private:
        Q_DISABLE_COPY(Snapshot)

        std::unique_ptr<LibraryTransaction> m_transaction;
    };

    /// Null when there is no library at \a path, with the reason in \a error when given. Never creates a file; a
    /// library of an earlier version is brought to the current one first, as Library::open() does.
    static std::unique_ptr<ReadOnlyLibrary> open(const QString& path, QString* error = nullptr);
    /// Whether open() changes nothing at \a path: there is a library, and it is of the current version.
    [[nodiscard]] static bool isCurrent(const QString& path);
    ~ReadOnlyLibrary();

    /// Library::id().
    [[nodiscard]] QString id() const { return m_id; }
    /// Every tag with its number of files, by id.
    [[nodiscard]] LibraryAnswer<QVector<TagRow>> tags();
    /// The favourites and the user categories, by id.
    [[nodiscard]] LibraryAnswer<QVector<CategoryRow>> categories();
    /// Every link between a tag and a category, favourites included.
    [[nodiscard]] LibraryAnswer<QVector<TagLink>> tagLinks();
    /// By id.
    [[nodiscard]] LibraryAnswer<QVector<RootRow>> roots();
    [[nodiscard]] LibraryAnswer<LibraryTotals> totals();
    /// Keywords that lead to no tag that people see, by name, with their number of files. Reads the keywords of all
    /// files.
    [[nodiscard]] LibraryAnswer<QVector<KeywordRow>> keywordsIgnored();

    /// Visits every file with its tag ids, ordered by root and path, without holding them all in memory. Answers how
    /// many were visited.
    [[nodiscard]] LibraryAnswer<qint64> forEachFile(const FileVisitor& visitor);
    /// The ids of the files asked for, ordered by root and path.
    [[nodiscard]] LibraryAnswer<QVector<qint64>> fileIds(const FileQuery& query);
    /// The names in a query that no tag or category has, as typed.
    [[nodiscard]] LibraryAnswer<QStringList> unknownNames(const QueryTerm& term);
    /// The files with these ids, in that order, without tag ids; unknown ids are left out.
    [[nodiscard]] LibraryAnswer<QVector<FileRow>> files(const QVector<qint64>& ids);

    /// The same with the ids of their living tags.
    [[nodiscard]] LibraryAnswer<QVector<FileRow>> filesWithTags(const QVector<qint64>& ids);
    /// The tags that at least one of these files has: those of most files first.
    [[nodiscard]] LibraryAnswer<QVector<TagShare>> tagShares(const QVector<qint64>& fileIds);
    /// The file at a path relative to the root; 0 when the library holds none there.
    [[nodiscard]] LibraryAnswer<qint64> fileIdAt(qint64 rootId, const QByteArray& path);

    /// Visits the files of a root in \a folder (at any depth; empty for the whole root), by path in byte order, without
    /// tag ids, absolute path and presence. All of it is one moment of the library. Fails when the library's index of
    /// paths is out of order, since whoever looks for a file there would not find it.
    [[nodiscard]] LibraryAnswer<qint64> forEachFileBelow(qint64 rootId, const QByteArray& folder,
                                                         const FileVisitor& visitor);

private:
    class Places;

    ReadOnlyLibrary(std::unique_ptr<LibraryDatabase> database, const QString& id);

    template <typename Read>
    auto guarded(Read read) -> LibraryAnswer<decltype(read())>;

    std::unique_ptr<LibraryDatabase> m_database;
    QString m_id;
    std::unique_ptr<ComputerState> m_computer;
};
