// SPDX-License-Identifier: MIT
#include "host/importer/importtarget.h"

#include "host/library/library.h"
#include "host/library/readonlylibrary.h"

ImportTarget::ImportTarget(Library* library, const std::atomic_bool& cancelled)
    : m_library(library)
    , m_cancelled(cancelled)
{
}

ImportTarget::~ImportTarget() = default;

bool ImportTarget::open(const QByteArray& folder)
{
    m_folder = folder;
    m_reader = ReadOnlyLibrary::open(m_library->path(), &m_error);
    if (!m_reader)
        return false;
    const LibraryResult root = m_library->addRootAndWait(folder, &m_cancelled);
    m_rootId = root.rootId;
    m_folderInRoot = root.folderInRoot;
    if (root.status != LibraryStatus::Cancelled)
        m_error = root.message;
    return root.succeeded();
}

QString ImportTarget::libraryId() const
{
    return m_library->id();
}

bool ImportTarget::forEachFile(const std::function<bool(const QByteArray&, const KnownFile&)>& visitor)
{
    const auto visited = m_reader->forEachFileBelow(
        m_rootId, m_folderInRoot, [&](const FileRow& file) { return visitor(pathOf(file.relativePath), file.known); });
    m_error = visited.error;
    return m_error.isEmpty();
}

LibraryTotals ImportTarget::totals()
{
    if (!m_reader)
        return {};
    const auto totals = m_reader->totals();
    m_error = totals.error;
    return totals.value;
}

LibraryResult ImportTarget::write(QVector<ImportedFile> files)
{
    for (ImportedFile& file : files)
        file.path = pathInRoot(file.path);
    return m_library->importAndWait(m_rootId, files, &m_cancelled);
}

LibraryResult ImportTarget::settle()
{
    return m_library->settleAndWait(&m_cancelled);
}

LibraryResult ImportTarget::forget(const QVector<QByteArray>& paths)
{
    QVector<QByteArray> inRoot;
    for (const QByteArray& path : paths)
        inRoot.append(pathInRoot(path));
    return m_library->forgetAndWait(m_rootId, inRoot, &m_cancelled);
}

/// Of a path below the folder.
QByteArray ImportTarget::pathInRoot(const QByteArray& path) const
{
    const QByteArray inFolder = path.mid(m_folder == "/" ? 1 : m_folder.size() + 1);
    return m_folderInRoot.isEmpty() ? inFolder : m_folderInRoot + '/' + inFolder;
}

QByteArray ImportTarget::pathOf(const QByteArray& pathInRoot) const
{
    const int inFolder = m_folderInRoot.isEmpty() ? 0 : m_folderInRoot.size() + 1;
    return (m_folder == "/" ? m_folder : m_folder + '/') + pathInRoot.mid(inFolder);
}
