// SPDX-License-Identifier: MIT
#include "host/library/requests/rootrequests.h"

#include "host/library/computer/computerstate.h"
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

void rootrequests::add(LibraryRequest& request, const ComputerState& computer, const QByteArray& folder)
{
    const QHash<qint64, QByteArray> mounts = computer.mounts();
    const QHash<qint64, QByteArray> named = computer.namedMounts();
    QVector<QPair<qint64, QByteArray>> above;
    QVector<QPair<qint64, QByteArray>> below;
    qint64 id = 0;
    for (const RootRow& root : roottable::roots(request.database)) {
        const QByteArray mount = mounts.value(root.id);
        if (mount.isEmpty())
            continue;
        const std::optional<QByteArray> inRoot = placeIn(mount, folder);
        if (inRoot && named.contains(root.id)) {
            request.result.rootId = root.id;
            request.result.folderInRoot = *inRoot;
            return;
        }
        if (inRoot && inRoot->isEmpty())
            id = root.id;
        else if (inRoot)
            above.append({root.id, *inRoot});
        else if (const std::optional<QByteArray> place = placeIn(folder, mount))
            below.append({root.id, *place});
    }
    if (id == 0)
        id = roottable::insert(request.database, nameOf(folder));
    for (const auto& [guessed, place] : qAsConst(above))
        roottable::split(request.database, guessed, place, id);
    for (const auto& [adopted, place] : qAsConst(below)) {
        roottable::adopt(request.database, adopted, id, place);
        request.result.rootsAdopted.append(adopted);
    }
    request.result.rootId = id;
    request.change().filesChanged = true;
}
