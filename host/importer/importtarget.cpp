// SPDX-License-Identifier: MIT
#include "host/importer/importtarget.h"

#include "host/library/library.h"
#include "host/library/libraryreader.h"

#include <QCoreApplication>
#include <QFile>

ImportTarget::ImportTarget(Library* library)
    : m_library(library)
{
}

ImportTarget::~ImportTarget() = default;

bool ImportTarget::open(const QByteArray& folder)
{
    m_folder = folder;
    m_reader = LibraryReader::open(m_library->path(), &m_error);
    return m_reader != nullptr;
}

QString ImportTarget::libraryId() const
{
    return m_library->path() + QFile::decodeName(m_folder);
}

QHash<QByteArray, FileState> ImportTarget::states(const QVector<QByteArray>& paths)
{
    const QHash<QByteArray, FileState> states = m_reader->fileStates(paths);
    m_error = m_reader->lastError();
    return states;
}

QVector<QByteArray> ImportTarget::pathsAfter(const QByteArray& after, int limit)
{
    const QVector<QByteArray> paths = m_reader->pathsBelow(m_folder, after, limit);
    m_error = m_reader->lastError();
    if (paths.isEmpty() || after < paths.last())
        return paths;
    // A damaged index may give the same paths for ever.
    m_error = QCoreApplication::translate("ImportTarget", "The library is damaged: its list of files is out of order.");
    return {};
}

LibraryTotals ImportTarget::totals()
{
    const LibraryTotals totals = m_reader->totals();
    m_error = m_reader->lastError();
    return totals;
}

ImportOutcome ImportTarget::write(const QVector<ImportedFile>& files)
{
    return m_library->importAndWait(files);
}

ImportOutcome ImportTarget::forget(const QVector<QByteArray>& paths)
{
    return m_library->forgetAndWait(paths);
}
