// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/// A root of a library that is wherever a folder is now: its pictures are there, and no longer where they were.
struct MovedRoot
{
    QByteArray libraryFile;
    qint64 rootId = 0;
    QByteArray folder;  ///< Where it is now: the folder asked about, one above it, or one in it.
    QByteArray from;    ///< Where it was mounted on this computer; empty when that is not known.
    QString name;       ///< Of the folder, as the library knows it.
};

/// Which library belongs to which folder on this computer. Paths are the file system's bytes.
namespace folderlibrary {

/// The library file of a folder for which none was named: the one in the person's data directory (XDG_DATA_HOME) that
/// has the folder for a root, else a name for a new one there. Makes that directory, for the person's eyes only; not
/// the file. Empty when the person has no data directory. \a folder need not exist.
[[nodiscard]] QByteArray defaultFile(const QByteArray& folder);

/// The root of the library in \a libraryFile that \a folder, an existing one, seems to be, to be in, or to hold under
/// the root's name: at least half of a sample of its pictures are there with their sizes, and none are where it was
/// mounted. Nothing when the folder belongs to the library already. Reads the paths of up to 200 pictures for each
/// root, and looks for them in each of those places.
[[nodiscard]] std::optional<MovedRoot> movedRoot(const QByteArray& libraryFile, const QByteArray& folder);
/// The same for all default libraries but those of earlier versions, which would have to be changed for it.
[[nodiscard]] std::optional<MovedRoot> movedRoot(const QByteArray& folder);

/// The folders that the person named for the library in \a libraryFile on this computer, by root, whether or not they
/// are there at the moment. Without that file, those of the library that was in it.
[[nodiscard]] QVector<QByteArray> foldersOf(const QByteArray& libraryFile);

}  // namespace folderlibrary
