// SPDX-License-Identifier: MIT
#include "host/library/requests/rootrequests.h"

#include "host/library/database/roottable.h"
#include "host/library/records/tagname.h"

namespace {

/// Where \a folder is inside of \a above; no value when it is not. Empty for the same folder.
std::optional<QByteArray> placeIn(const QByteArray& above, const QByteArray& folder)
{
    if (folder == above)
        return QByteArray();
    const QByteArray start = above == "/" ? above : above + '/';
    if (!folder.startsWith(start))
        return std::nullopt;
    return folder.mid(start.size());
}

QString nameOf(const QByteArray& folder)
{
    const QByteArray name = folder.mid(folder.lastIndexOf('/') + 1);
    return tagname::repaired(QString::fromUtf8(name.isEmpty() ? folder : name));
}

}  // namespace

void rootrequests::add(LibraryRequest& request, const QHash<qint64, QByteArray>& mounts, const QByteArray& folder)
{
    QVector<QPair<qint64, QByteArray>> below;
    for (const RootRow& root : roottable::roots(request.database)) {
        const QByteArray mount = mounts.value(root.id);
        if (mount.isEmpty())
            continue;
        if (const std::optional<QByteArray> place = placeIn(mount, folder)) {
            request.result.rootId = root.id;
            request.result.folderInRoot = *place;
            return;
        }
        if (const std::optional<QByteArray> place = placeIn(folder, mount))
            below.append({root.id, *place});
    }
    const qint64 id = roottable::insert(request.database, nameOf(folder));
    for (const auto& [adopted, place] : qAsConst(below)) {
        roottable::adopt(request.database, adopted, id, place);
        request.result.rootsAdopted.append(adopted);
    }
    request.result.rootId = id;
    request.change().filesChanged = true;
}
