// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include <memory>

class LibraryDatabase;

/// A library that was opened on this computer. The same library may be there in several files.
struct KnownLibrary
{
    QByteArray file;  ///< Absolute, without links.
    QString id;       ///< What the library calls itself: see its table of facts.
};

/// A file or folder that could not be read.
struct UnreadableFile
{
    QByteArray path;   ///< Relative to its root.
    QByteArray stamp;  ///< Of the importer's choice: another stamp means that the file is worth another try.
    QString reason;
};

/// What this computer knows about libraries and what is in none of them, since a library may be shared: where its
/// roots are mounted, which files could not be read here, which libraries there are. One small file for all libraries
/// of a person, beside the default libraries (XDG_DATA_HOME).
///
/// Losing it costs nothing but questions. So a file that is damaged is begun anew, one that cannot be written is
/// replaced by a temporary one for this process, and no operation fails: one that cannot be carried out reads nothing
/// and writes nothing. To be used on the thread that opened it; several threads and programs open one each.
class ComputerState
{
public:
    ComputerState();
    ~ComputerState();

    /// Remembers that the library \a id is in \a file, an absolute path.
    void noteLibrary(const QByteArray& file, const QString& id);
    /// Every library noted, by file. The files may be gone by now.
    [[nodiscard]] QVector<KnownLibrary> libraries() const;

    /// Absolute folders by the ids of the library's roots; no entry for a root that was never mounted here.
    [[nodiscard]] QHash<qint64, QByteArray> mounts(const QString& libraryId) const;
    void setMount(const QString& libraryId, qint64 rootId, const QByteArray& folder);
    /// Forgets everything about a root.
    void removeRoot(const QString& libraryId, qint64 rootId);

    /// Unreadable files at or below \a folder, relative to the root (empty: all of them), by path.
    [[nodiscard]] QHash<QByteArray, UnreadableFile> unreadable(const QString& libraryId, qint64 rootId,
                                                               const QByteArray& folder) const;
    /// Replaces what unreadable() answers for the same folder, in one transaction.
    void setUnreadable(const QString& libraryId, qint64 rootId, const QByteArray& folder,
                       const QVector<UnreadableFile>& files);

private:
    Q_DISABLE_COPY(ComputerState)

    template <typename Operation>
    void attempt(Operation operation) const;

    std::unique_ptr<LibraryDatabase> m_database;  ///< Null when not even a temporary file can be made.
};
