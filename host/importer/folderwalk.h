// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/foundpicture.h"

#include <QSet>
#include <QString>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

/// Finds the pictures in a folder and the folders in it, with their sidecars. Hidden files and folders are left out.
/// Links are followed, each folder is entered once (so loops end) and a picture that is met by a link and by itself is
/// met once, by itself. File names are bytes in any encoding.
class FolderWalk
{
public:
    struct Problem
    {
        QByteArray path;
        QString reason;
    };
    /// Told after each folder with the number of pictures found so far; returns false to stop.
    using Progress = std::function<bool(int found)>;

    /// Walks \a folder; blocking. False when it was stopped.
    bool run(const QByteArray& folder, const Progress& progress);

    /// By path, in byte order.
    [[nodiscard]] const std::vector<FoundPicture>& pictures() const { return m_pictures; }
    /// Folders and files that could not be looked at.
    [[nodiscard]] const std::vector<Problem>& problems() const { return m_problems; }
    /// Whether a picture at \a path, which the walk did not meet, may be on a disk that is not connected or in a
    /// folder that cannot be read: it or a folder above it is a problem, a link that leads nowhere, or a folder
    /// without any entry, as mount points are. The cost grows with the depth of the path only.
    [[nodiscard]] bool isOutOfSight(const QByteArray& path) const;

private:
    using Identity = std::pair<quint64, quint64>;  // Device and inode.
    struct Entry
    {
        QByteArray name;
        bool isLink;
        qint64 size;
        qint64 modified;
        qint64 statusChanged;
        Identity identity;
    };
    struct Listing;

    void visitFolder(const QByteArray& folder);
    void lookAt(const QByteArray& folder, const QByteArray& name, Listing& listing);
    void addPictures(const QByteArray& folder, const Listing& listing);
    void addLinkedPictures();
    void addProblem(const QByteArray& path, int errorNumber);

    QByteArray m_root;
    std::vector<QByteArray> m_folders;        // Still to be visited, last one first.
    std::vector<QByteArray> m_linkedFolders;  // Visited after all others, so that a folder is met by its own path.
    std::vector<std::pair<FoundPicture, Identity>> m_linkedPictures;
    QSet<Identity> m_visitedFolders;
    QSet<Identity> m_metPictures;
    QSet<QByteArray> m_outOfSight;  // Paths of files and folders; what is below them is out of sight as well.
    std::vector<FoundPicture> m_pictures;
    std::vector<Problem> m_problems;
};

/// The folder's path with all links resolved; nothing when there is no such folder.
[[nodiscard]] std::optional<QByteArray> canonicalFolder(const QByteArray& folder);
