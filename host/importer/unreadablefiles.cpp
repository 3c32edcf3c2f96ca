// SPDX-License-Identifier: MIT
#include "host/importer/unreadablefiles.h"

UnreadableFiles::UnreadableFiles(ComputerState& state, qint64 rootId, const QByteArray& folderInRoot,
                                 const QByteArray& folder)
    : m_state(state)
    , m_rootId(rootId)
    , m_folderInRoot(folderInRoot)
    , m_folder(folder)
    , m_before(state.unreadable(rootId, folderInRoot))
{
}

bool UnreadableFiles::isKnown(const QByteArray& path, const QByteArray& stamp)
{
    const QByteArray name = relative(path);
    const auto before = m_before.constFind(name);
    if (before == m_before.constEnd() || before->stamp != stamp)
        return false;
    if (!m_now.contains(name))
        ++m_known;
    m_now.insert(name, *before);
    return true;
}

bool UnreadableFiles::note(const QByteArray& path, const QByteArray& stamp, const QString& reason)
{
    const QByteArray name = relative(path);
    const auto before = m_before.constFind(name);
    const bool isNew = before == m_before.constEnd() || before->stamp != stamp || before->reason != reason;
    if (!isNew && !m_now.contains(name))
        ++m_known;
    m_now.insert(name, {name, stamp, reason});
    return isNew;
}

void UnreadableFiles::save(const std::function<bool(const QByteArray& path)>& wasSeen)
{
    QHash<QByteArray, UnreadableFile> files = m_now;
    for (const UnreadableFile& file : qAsConst(m_before)) {
        if (!files.contains(file.path) && !wasSeen(absolute(file.path)))
            files.insert(file.path, file);
    }
    if (files != m_before)
        m_state.setUnreadable(m_rootId, m_folderInRoot, QVector<UnreadableFile>(files.cbegin(), files.cend()));
}

QByteArray UnreadableFiles::relative(const QByteArray& path) const
{
    const QByteArray below = path.mid(m_folder.size() + (m_folder.endsWith('/') ? 0 : 1));
    if (m_folderInRoot.isEmpty() || below.isEmpty())
        return m_folderInRoot + below;
    return m_folderInRoot + '/' + below;
}

QByteArray UnreadableFiles::absolute(const QByteArray& name) const
{
    const QByteArray below = m_folderInRoot.isEmpty() ? name : name.mid(m_folderInRoot.size() + 1);
    return below.isEmpty() ? m_folder : QByteArray(m_folder + (m_folder.endsWith('/') ? "" : "/") + below);
}
