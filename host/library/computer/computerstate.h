// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include <memory>

class SqliteDatabase;

/// A library that was opened on this computer. The same library may be there in several files.
struct KnownLibrary
{
    QByteArray file;                   ///< Absolute, without links; may be gone by now.
    QString id;                        ///< Library::id().
    QHash<qint64, QByteArray> mounts;  ///< As ComputerState::namedMounts().
};

/// A file or folder that could not be read.
struct UnreadableFile
{
    QByteArray path;   ///< Relative to its root; empty for the root itself.
    QByteArray stamp;  ///< Of the importer's choice: another stamp means that the file is worth another try.
    QString reason;
};

inline bool operator==(const UnreadableFile& a, const UnreadableFile& b)
{
    return a.path == b.path && a.stamp == b.stamp && a.reason == b.reason;
}

/// What this computer knows about a library and what is not in the library, since that may be shared: where its roots
/// are mounted, which files could not be read here. One small file for all libraries of a person, beside the default
/// libraries (XDG_DATA_HOME).
///
/// Losing it costs nothing but questions. So a file that is damaged gets another name and is begun anew, one that
/// cannot be opened or written is replaced by a temporary one for this process (both with a warning), and no operation
/// fails: one that cannot be carried out reads nothing and writes nothing. To be used on the thread that made it;
/// several threads and programs make one each.
class ComputerState
{
public:
    /// Every library that noteFile() was called for, by file.
    [[nodiscard]] static QVector<KnownLibrary> knownLibraries();

    /// \a libraryId is Library::id().
    explicit ComputerState(const QString& libraryId);
    ~ComputerState();

    /// Remembers that the library is in \a file, an absolute path without links.
    void noteFile(const QByteArray& file);

    /// Absolute folders by the ids of the library's roots; no entry for a root that was never mounted here.
    [[nodiscard]] QHash<qint64, QByteArray> mounts() const;
    /// Those of mounts() that a person named. The others hold pictures of the library, but maybe also some that nobody
    /// wants in it.
    [[nodiscard]] QHash<qint64, QByteArray> namedMounts() const;
    /// The person named the folder.
    void setMount(qint64 rootId, const QByteArray& folder);
    /// The folder follows from the paths of the pictures alone.
    void setGuessedMount(qint64 rootId, const QByteArray& folder);
    /// Forgets everything about a root.
    void removeRoot(qint64 rootId);

    /// Unreadable files at or below \a folder, relative to the root (empty: all of them), by path.
    [[nodiscard]] QHash<QByteArray, UnreadableFile> unreadable(qint64 rootId, const QByteArray& folder = {}) const;
    /// Replaces what unreadable() answers for the same folder, in one transaction.
    void setUnreadable(qint64 rootId, const QByteArray& folder, const QVector<UnreadableFile>& files);

private:
    Q_DISABLE_COPY(ComputerState)

    void mount(qint64 rootId, const QByteArray& folder, const char* noteGuess);
    template <typename Operation>
    void attempt(Operation operation) const;

    QString m_libraryId;
    std::unique_ptr<SqliteDatabase> m_database;  ///< Null when not even a temporary file can be made.
};
