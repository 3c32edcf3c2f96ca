// SPDX-License-Identifier: MIT
#include "host/importer/importer.h"

#include "host/importer/importjob.h"

#include <utility>

Importer::Importer(Library* library, QObject* parent)
    : QObject(parent)
    , m_library(library)
{
    qRegisterMetaType<ImportSummary>("ImportSummary");
    m_thread.setObjectName(QStringLiteral("importer"));
    connect(&m_thread, &QThread::finished, this, &Importer::handleThreadEnd);
}

Importer::~Importer()
{
    cancel();
    m_thread.wait();
}

bool Importer::start(const QByteArray& folder, const ImportOptions& options)
{
    if (m_running)
        return false;
    m_running = true;
    m_cancelled = false;
    auto* const job = new ImportJob(m_library, folder, options, m_readerSettings, m_cancelled);
    job->moveToThread(&m_thread);
    connect(&m_thread, &QThread::started, job, &ImportJob::run);
    connect(this, &Importer::cancelRequested, job, &ImportJob::checkCancelled);
    connect(job, &ImportJob::progress, this, &Importer::progress);
    connect(job, &ImportJob::skipped, this, &Importer::skipped);
    connect(job, &ImportJob::finished, this, [this](const ImportSummary& summary) { m_summary = summary; });
    // The job cleans up on its own thread, which ends after it: nobody waits for the reader processes to go.
    connect(job, &ImportJob::finished, job, &QObject::deleteLater);
    connect(job, &QObject::destroyed, &m_thread, &QThread::quit, Qt::DirectConnection);
    m_thread.start();
    if (!m_thread.isRunning() && !m_thread.isFinished()) {
        m_summary.error = tr("The system has no room for another thread.");
        delete job;
        QMetaObject::invokeMethod(this, &Importer::handleThreadEnd, Qt::QueuedConnection);
    }
    return true;
}

void Importer::cancel()
{
    m_cancelled = true;
    emit cancelRequested({});
}

void Importer::handleThreadEnd()
{
    m_thread.wait();
    m_running = false;
    emit finished(std::exchange(m_summary, {}));
}
