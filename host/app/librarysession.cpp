// SPDX-License-Identifier: MIT
#include "host/app/librarysession.h"

#include "host/importer/importer.h"
#include "host/library/library.h"

#include <QFile>

std::unique_ptr<LibrarySession> LibrarySession::open(const LibraryChoice& choice, QString* error)
{
    auto library = Library::open(QFile::decodeName(choice.file), error);
    if (!library)
        return nullptr;
    choice.mountMoved(library->id());
    return std::unique_ptr<LibrarySession>(new LibrarySession(choice, std::move(library)));
}

LibrarySession::LibrarySession(const LibraryChoice& choice, std::unique_ptr<Library> library)
    : m_choice(choice)
    , m_library(std::move(library))
    , m_importer(std::make_unique<Importer>(m_library.get()))
{
    connect(m_importer.get(), &Importer::progress, this, &LibrarySession::importProgress);
    connect(m_importer.get(), &Importer::finished, this, &LibrarySession::importNext);
    connect(m_importer.get(), &Importer::skipped, this, [this](const QByteArray& path, const QString& reason) {
        if (m_skipped.size() < maxSkipped)
            m_skipped.append({path, reason});
    });
}

LibrarySession::~LibrarySession() = default;

bool LibrarySession::startImport(const ImportOptions& options)
{
    if (m_choice.folders.isEmpty() || m_importer->isRunning())
        return false;
    m_skipped.clear();
    m_summary = {};
    m_isCancelled = false;
    m_options = options;
    m_folders = m_choice.folders;
    return m_importer->start(m_folders.takeFirst(), m_options);
}

void LibrarySession::importNext(const ImportSummary& summary)
{
    m_summary.add(summary);
    // The importer may have finished its folder before it was cancelled.
    if (m_isCancelled && !m_folders.isEmpty() && m_summary.error.isEmpty())
        m_summary.cancelled = true;
    if (!m_folders.isEmpty() && m_summary.error.isEmpty() && !m_summary.cancelled)
        m_importer->start(m_folders.takeFirst(), m_options);
    else
        emit importFinished(m_summary);
}

void LibrarySession::forgetMissing()
{
    ImportOptions options;
    options.forgetsMissing = true;
    startImport(options);
}

void LibrarySession::cancelImport()
{
    m_isCancelled = true;
    m_importer->cancel();
}
