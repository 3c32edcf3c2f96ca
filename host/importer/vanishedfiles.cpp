// SPDX-License-Identifier: MIT
#include "host/importer/vanishedfiles.h"

#include "host/importer/folderwalk.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

namespace {

bool exists(const QByteArray& path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

}  // namespace

VanishedFiles::VanishedFiles(const FolderWalk& walk)
    : m_walk(walk)
{
}

QVector<QByteArray> VanishedFiles::add(const QVector<QByteArray>& paths)
{
    const std::vector<FoundPicture>& pictures = m_walk.pictures();
    QVector<QByteArray> missing;
    for (const QByteArray& path : paths) {
        const auto place = std::lower_bound(
            pictures.begin(), pictures.end(), path,
            [](const FoundPicture& picture, const QByteArray& sought) { return picture.path < sought; });
        if (place != pictures.end() && place->path == path)
            continue;
        if (m_walk.isOutOfSight(path))
            ++m_away;
        else if (!exists(path))
            missing.append(path);
    }
    m_missing += missing.size();
    return missing;
}
