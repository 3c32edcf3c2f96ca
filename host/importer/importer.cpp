// SPDX-License-Identifier: MIT
#include "host/importer/importer.h"

#include "host/importer/importjob.h"

Importer::Importer(Library* library, QObject* parent)
    : QObject(parent)
    , m_library(library)
{
    qRegisterMetaType<ImportSummary>("ImportSummary");
    m_thread.setObjectName(QStringLiteral("importer"));
}

Importer::~Importer()
{
    m_cancelled = true;
    m_thread.quit();
    m_thread.wait();
}

bool Importer::start(const QByteArray& folder)
{
    if (m_running)
        return false;
    m_running = true;
    m_cancelled = false;
    auto* const job = new ImportJob(m_library, folder, m_readerSettings, m_cancelled);
    job->moveToThread(&m_thread);
    connect(&m_thread, &QThread::started, job, &ImportJob::run);
    connect(&m_thread, &QThread::finished, job, &QObject::deleteLater);
    connect(this, &Importer::cancelRequested, job, &ImportJob::checkCancelled);
    connect(job, &ImportJob::progress, this, &Importer::progress);
    connect(job, &ImportJob::skipped, this, &Importer::skipped);
    connect(job, &ImportJob::finished, this, &Importer::handleFinished);
    m_thread.start();
    return true;
}

void Importer::cancel()
{
    m_cancelled = true;
    emit cancelRequested({});
}

void Importer::handleFinished(const ImportSummary& summary)
{
    m_thread.quit();
    m_thread.wait();
    m_running = false;
    emit finished(summary);
}
