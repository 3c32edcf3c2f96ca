// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerpool.h"

#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/readerprocess.h"
#include "host/importer/metadata/regularfile.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace {

// Files given to a process ahead of its answers, so that it never waits for this thread. All of them are open.
constexpr int filesAhead = 8;

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
    const ReaderProcess::Settings settings = {m_settings.program, QString::fromLatin1(metadataReaderOption),
                                              m_settings.fileLimit};
    m_processes.push_back(std::make_unique<ReaderProcess>(settings));
    ReaderProcess* const process = m_processes.back().get();
    connect(process, &ReaderProcess::answered, this,
            [this, process](int index, const QByteArray& line) { handleAnswer(process, index, line); });
    connect(process, &ReaderProcess::failed, this, [this, process](int index, const QString& reason) {
        feed(process);
        fail(index, reason);
    });
    // Queued, as the first process may fail inside read().
    connect(
        process, &ReaderProcess::unavailable, this, [this, process](const QString& reason) { drop(process, reason); },
        Qt::QueuedConnection);
    feed(process);
}

void ReaderPool::drop(const ReaderProcess* process, const QString& reason)
{
    const auto dropped = std::find_if(m_processes.begin(), m_processes.end(),
                                      [process](const auto& known) { return known.get() == process; });
    m_returned += (*dropped)->takePending();
    m_processes.erase(dropped);
    for (const auto& other : m_processes)
        feed(other.get());
    if (m_processes.empty())
        emit failed(reason);
}

void ReaderPool::feed(ReaderProcess* process)
{
    if (process->pending() > filesAhead / 2)
        return;
    while (hasNext() && process->pending() < filesAhead) {
        const int index = m_returned.isEmpty() ? m_next++ : m_returned.takeLast();
        const QByteArray& path = m_paths.at(index);
        RegularFile file = RegularFile::open(path);
        if (file.descriptor.isValid())
            process->read(index, {std::move(file.descriptor), path.mid(path.lastIndexOf('/') + 1), 0});
        else
            QMetaObject::invokeMethod(
                this, [this, index, reason = file.error] { fail(index, reason); }, Qt::QueuedConnection);
    }
}

void ReaderPool::handleAnswer(ReaderProcess* process, int index, const QByteArray& line)
{
    const std::optional<MetadataAnswer> answer = MetadataAnswer::fromLine(line);
    if (!answer)
        process->replace();
    feed(process);
    if (answer)
        emit answered(index, *answer);
    else
        fail(index, ReaderProcess::downfall());
}

void ReaderPool::fail(int index, const QString& reason)
{
    MetadataAnswer answer;
    answer.error = reason;
    emit answered(index, answer);
}
