// SPDX-License-Identifier: MIT
#include "host/importer/folderwalk.h"

#include "host/importer/metadata/pictureformats.h"
#include "host/library/records/plainpath.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>

namespace {

struct CloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

qint64 nanoseconds(const timespec& time)
{
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

QByteArray joined(const QByteArray& folder, const QByteArray& name)
{
    return folder.endsWith('/') ? QByteArray(folder + name) : QByteArray(folder + '/' + name);
}

QByteArray withoutExtension(const QByteArray& name)
{
    const int dot = name.lastIndexOf('.');
    return dot > 0 ? name.left(dot) : name;
}

}  // namespace

// What one folder holds that matters.
struct FolderWalk::Listing
{
    std::vector<Entry> pictures;
    QHash<QByteArray, QVector<FoundSidecar>> sidecars;  // By the name before ".xmp".
};

bool FolderWalk::run(const QByteArray& folder, const Progress& progress)
{
    m_root = folder;
    m_folders.push_back(folder);
    while (!m_folders.empty() || !m_linkedFolders.empty()) {
        std::vector<QByteArray>& queue = m_folders.empty() ? m_linkedFolders : m_folders;
        const QByteArray next = queue.back();
        queue.pop_back();
        visitFolder(next);
        if (!progress(int(m_pictures.size())))
            return false;
    }
    addLinkedPictures();
    std::sort(m_pictures.begin(), m_pictures.end(),
              [](const FoundPicture& a, const FoundPicture& b) { return a.path < b.path; });
    return progress(int(m_pictures.size()));
}

bool FolderWalk::isOutOfSight(const QByteArray& path) const
{
    for (QByteArray ancestor = path; ancestor.size() >= m_root.size();) {
        if (m_outOfSight.contains(ancestor))
            return true;
        const int slash = ancestor.lastIndexOf('/');
        const QByteArray next = ancestor.left(qMax(slash, 1));
        if (next == ancestor)
            break;
        ancestor = next;
    }
    return false;
}

void FolderWalk::visitFolder(const QByteArray& folder)
{
    const std::unique_ptr<DIR, CloseFolder> handle(opendir(folder.constData()));
    struct stat status = {};
    if (!handle || fstat(dirfd(handle.get()), &status) != 0) {
        addProblem(folder, errno);
        return;
    }
    const Identity identity(status.st_dev, status.st_ino);
    if (m_visitedFolders.contains(identity))
        return;
    m_visitedFolders.insert(identity);

    Listing listing;
    int entries = 0;
    errno = 0;
    while (const dirent* const entry = readdir(handle.get())) {
        const QByteArray name = entry->d_name;
        if (!name.startsWith('.'))
            lookAt(folder, name, listing);
        if (name != "." && name != "..")
            ++entries;
        errno = 0;
    }
    if (errno != 0)
        addProblem(folder, errno);
    if (entries == 0)
        m_outOfSight.insert(folder);
    addPictures(folder, listing);
}

void FolderWalk::lookAt(const QByteArray& folder, const QByteArray& name, Listing& listing)
{
    const QByteArray path = joined(folder, name);
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0) {
        addProblem(path, errno);
        return;
    }
    const bool isLink = S_ISLNK(status.st_mode);
    if (isLink && stat(path.constData(), &status) != 0) {
        if (pictureformats::isPicture(name))
            addProblem(path, errno);
        m_outOfSight.insert(path);
        return;
    }
    const qint64 modified = nanoseconds(status.st_mtim);
    const qint64 statusChanged = nanoseconds(status.st_ctim);
    if (S_ISDIR(status.st_mode)) {
        (isLink ? m_linkedFolders : m_folders).push_back(path);
    } else if (S_ISREG(status.st_mode) && pictureformats::isSidecar(name)) {
        const QByteArray stamp = name.toPercentEncoding() + '=' + QByteArray::number(qint64(status.st_size)) + ',' +
                                 QByteArray::number(modified) + ';';
        listing.sidecars[withoutExtension(name)].append({path, stamp, statusChanged});
    } else if (S_ISREG(status.st_mode) && pictureformats::isPicture(name)) {
        listing.pictures.push_back(
            {name, isLink, status.st_size, modified, statusChanged, {status.st_dev, status.st_ino}});
    }
}

void FolderWalk::addPictures(const QByteArray& folder, const Listing& listing)
{
    for (const Entry& entry : listing.pictures) {
        FoundPicture picture;
        picture.path = joined(folder, entry.name);
        picture.size = entry.size;
        picture.modified = entry.modified;
        picture.statusChanged = entry.statusChanged;
        picture.sidecars = listing.sidecars.value(entry.name) + listing.sidecars.value(withoutExtension(entry.name));
        if (entry.isLink) {
            m_linkedPictures.emplace_back(picture, entry.identity);
            continue;
        }
        m_metPictures.insert(entry.identity);
        m_pictures.push_back(picture);
    }
}

void FolderWalk::addLinkedPictures()
{
    std::sort(m_linkedPictures.begin(), m_linkedPictures.end(),
              [](const auto& a, const auto& b) { return a.first.path < b.first.path; });
    for (const auto& [picture, identity] : m_linkedPictures) {
        if (m_metPictures.contains(identity))
            continue;
        m_metPictures.insert(identity);
        m_pictures.push_back(picture);
    }
}

void FolderWalk::addProblem(const QByteArray& path, int errorNumber)
{
    m_problems.push_back({path, QString::fromLocal8Bit(strerror(errorNumber))});
    m_outOfSight.insert(path);
}

std::optional<QByteArray> canonicalFolder(const QByteArray& folder)
{
    const QByteArray path = plainPath(folder);
    std::error_code error;
    if (folder.isEmpty() || !std::filesystem::is_directory(path.toStdString(), error))
        return {};
    return path;
}
