// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerpool.h"

#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/readerprocess.h"

#include <QCoreApplication>
#include <QThread>

namespace {

// Files given to a process ahead of its answers, so that it never waits for this thread.
constexpr int filesAhead = 64;

}  // namespace

ReaderPool::ReaderPool(const Settings& settings, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
{
    if (m_settings.program.isEmpty())
        m_settings.program = QCoreApplication::applicationFilePath();
    if (m_settings.processes <= 0)
        m_settings.processes = qMax(1, QThread::idealThreadCount());
}

ReaderPool::~ReaderPool() = default;

void ReaderPool::read(const QVector<QByteArray>& paths)
{
    m_paths = paths;
    const int useful = (paths.size() + filesAhead - 1) / filesAhead;
    while (int(m_processes.size()) < qMin(m_settings.processes, useful))
        addProcess();
}

void ReaderPool::addProcess()
{
    m_processes.push_back(std::make_unique<ReaderProcess>(m_settings.program, m_settings.fileLimit));
    ReaderProcess* const process = m_processes.back().get();
    connect(process, &ReaderProcess::answered, this, [this, process](int index, const MetadataAnswer& answer) {
        feed(process);
        emit answered(index, answer);
    });
    connect(process, &ReaderProcess::unavailable, this, &ReaderPool::failed);
    feed(process);
}

void ReaderPool::feed(ReaderProcess* process)
{
    if (process->pending() > filesAhead / 2)
        return;
    while (m_next < m_paths.size() && process->pending() < filesAhead) {
        process->read(m_next, m_paths.at(m_next));
        ++m_next;
    }
}
