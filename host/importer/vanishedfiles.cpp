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

bool VanishedFiles::add(const QByteArray& path)
{
    const std::vector<FoundPicture>& pictures = m_walk.pictures();
    const auto place =
        std::lower_bound(pictures.begin(), pictures.end(), path,
                         [](const FoundPicture& picture, const QByteArray& sought) { return picture.path < sought; });
    if (place != pictures.end() && place->path == path)
        return false;
    const bool isOutOfSight = m_walk.isOutOfSight(path);
    m_away += isOutOfSight ? 1 : 0;
    const bool isMissing = !isOutOfSight && !exists(path);
    m_missing += isMissing ? 1 : 0;
    return isMissing;
}
