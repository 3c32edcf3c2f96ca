// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerpool.h"

#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/metadatareader.h"
#include "host/importer/metadata/readerprocess.h"
#include "host/importer/metadata/regularfile.h"

#include <QCoreApplication>
#include <QThread>

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
        process, &ReaderProcess::unavailable, this,
        [this](const QString& reason) {
            if (!std::exchange(m_failed, true))
                emit failed(reason);
        },
        Qt::QueuedConnection);
    feed(process);
}

void ReaderPool::feed(ReaderProcess* process)
{
    if (process->pending() > filesAhead / 2)
        return;
    while (m_next < m_paths.size() && process->pending() < filesAhead) {
        const int index = m_next++;
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
