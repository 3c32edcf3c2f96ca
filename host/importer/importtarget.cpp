// SPDX-License-Identifier: MIT
#include "host/importer/importtarget.h"

#include "host/library/library.h"
#include "host/library/libraryreader.h"

#include <QCoreApplication>

ImportTarget::ImportTarget(Library* library, const std::atomic_bool& cancelled)
    : m_library(library)
    , m_cancelled(cancelled)
{
}

ImportTarget::~ImportTarget() = default;

template <typename Request>
LibraryResult ImportTarget::untilUnlocked(Request request) const
{
    for (;;) {
        LibraryResult result = request();
        if (result.status != LibraryStatus::Locked || m_cancelled)
            return result;
    }
}

bool ImportTarget::open(const QByteArray& folder)
{
    m_folder = folder;
    const LibraryResult root = untilUnlocked([&] { return m_library->addRootAndWait(folder); });
    m_rootId = root.rootId;
    m_folderInRoot = root.folderInRoot;
    m_error = root.message;
    if (root.succeeded())
        m_reader = LibraryReader::open(m_library->path(), &m_error);
    return m_reader != nullptr;
}

QString ImportTarget::libraryId() const
{
    return m_library->id();
}

QHash<QByteArray, KnownFile> ImportTarget::states(const QVector<QByteArray>& paths)
{
    const auto known = m_reader->fileStates(m_rootId, pathsInRoot(paths));
    m_error = known.error;
    QHash<QByteArray, KnownFile> states;
    for (auto file = known.value.cbegin(); file != known.value.cend(); ++file)
        states.insert(pathOf(file.key()), file.value());
    return states;
}

QVector<QByteArray> ImportTarget::pathsAfter(const QByteArray& after, int limit)
{
    const auto known =
        m_reader->pathsBelow(m_rootId, m_folderInRoot, after.isEmpty() ? after : pathInRoot(after), limit);
    m_error = known.error;
    QVector<QByteArray> paths;
    for (const QByteArray& path : known.value)
        paths.append(pathOf(path));
    if (paths.isEmpty() || after < paths.last())
        return paths;
    // A damaged index may give the same paths for ever.
    m_error = QCoreApplication::translate("ImportTarget", "The library is damaged: its list of files is out of order.");
    return {};
}

LibraryTotals ImportTarget::totals()
{
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
    return m_library->settleAndWait(m_rootId, &m_cancelled);
}

LibraryResult ImportTarget::forget(const QVector<QByteArray>& paths)
{
    return untilUnlocked([&] { return m_library->forgetAndWait(m_rootId, pathsInRoot(paths)); });
}

/// Of a path below the folder.
QByteArray ImportTarget::pathInRoot(const QByteArray& path) const
{
    const QByteArray inFolder = path.mid(m_folder == "/" ? 1 : m_folder.size() + 1);
    return m_folderInRoot.isEmpty() ? inFolder : m_folderInRoot + '/' + inFolder;
}

QVector<QByteArray> ImportTarget::pathsInRoot(const QVector<QByteArray>& paths) const
{
    QVector<QByteArray> inRoot;
    inRoot.reserve(paths.size());
    for (const QByteArray& path : paths)
        inRoot.append(pathInRoot(path));
    return inRoot;
}

QByteArray ImportTarget::pathOf(const QByteArray& pathInRoot) const
{
    const int inFolder = m_folderInRoot.isEmpty() ? 0 : m_folderInRoot.size() + 1;
    return (m_folder == "/" ? m_folder : m_folder + '/') + pathInRoot.mid(inFolder);
}
