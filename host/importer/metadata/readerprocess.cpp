// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerprocess.h"

#include "host/importer/metadata/limitedprocess.h"
#include "host/importer/metadata/metadataanswer.h"
#include "host/importer/metadata/metadatareader.h"

namespace {

// Bytes of one answer; more is no answer but a process gone wrong.
constexpr qint64 longestAnswer = 64 << 20;

}  // namespace

ReaderProcess::ReaderProcess(const QString& program, std::chrono::milliseconds fileLimit, QObject* parent)
    : QObject(parent)
    , m_program(program)
{
    m_fileTimer.setSingleShot(true);
    m_fileTimer.setInterval(fileLimit);
    connect(&m_fileTimer, &QTimer::timeout, this, &ReaderProcess::endHangingProcess);
    start();
}

ReaderProcess::~ReaderProcess()
{
    m_process->disconnect(this);
    m_process->kill();
    m_process->waitForFinished();
}

void ReaderProcess::read(int index, const QByteArray& path)
{
    if (m_requests.isEmpty())
        m_fileTimer.start();
    m_requests.enqueue({index, path});
    if (m_process->state() != QProcess::NotRunning)
        m_process->write(path + '\0');
}

void ReaderProcess::start()
{
    m_ready = false;
    m_tookTooLong = false;
    m_wentWrong = false;
    m_process = std::make_unique<LimitedProcess>();
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &ReaderProcess::readOutput);
    // Queued: these replace the process that sends them.
    connect(m_process.get(), QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &ReaderProcess::handleEnd, Qt::QueuedConnection);
    connect(m_process.get(), &QProcess::errorOccurred, this, &ReaderProcess::handleStartFailure, Qt::QueuedConnection);
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->start(m_program, {QString::fromLatin1(metadataReaderOption)});
    for (const Request& request : qAsConst(m_requests))
        m_process->write(request.path + '\0');
    if (!m_requests.isEmpty())
        m_fileTimer.start();
}

void ReaderProcess::readOutput()
{
    while (!m_wentWrong && m_process->canReadLine())
        handleLine(m_process->readLine());
    if (m_process->bytesAvailable() > longestAnswer)
        giveUpOnProcess();
}

void ReaderProcess::giveUpOnProcess()
{
    m_wentWrong = true;
    m_process->kill();
}

void ReaderProcess::handleLine(const QByteArray& line)
{
    if (!m_ready) {
        m_ready = line == metadataReaderReady;
        if (!m_ready)
            giveUpOnProcess();
        return;
    }
    const std::optional<MetadataAnswer> answer = MetadataAnswer::fromLine(line);
    if (!answer || m_requests.isEmpty()) {
        giveUpOnProcess();
        return;
    }
    const Request request = m_requests.dequeue();
    if (m_requests.isEmpty())
        m_fileTimer.stop();
    else
        m_fileTimer.start();
    emit answered(request.index, *answer);
}

void ReaderProcess::endHangingProcess()
{
    // The answer may lie in the pipe while this thread was busy.
    const int pendingBefore = pending();
    m_process->waitForReadyRead(0);
    readOutput();
    if (pending() < pendingBefore)
        return;
    m_tookTooLong = true;
    m_process->kill();
}

void ReaderProcess::handleEnd()
{
    readOutput();
    if (!m_ready && !m_tookTooLong) {
        emit unavailable(tr("The process that reads pictures ended at once: %1").arg(m_program));
        return;
    }
    if (m_requests.isEmpty())
        return;
    MetadataAnswer answer;
    answer.error = reasonOfEnd();
    const Request request = m_requests.dequeue();
    start();
    emit answered(request.index, answer);
}

void ReaderProcess::handleStartFailure(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart)
        emit unavailable(
            tr("The process that reads pictures cannot be started: %1: %2").arg(m_program, m_process->errorString()));
}

QString ReaderProcess::reasonOfEnd() const
{
    if (m_tookTooLong)
        return tr("Reading it took longer than %1 seconds").arg(m_fileTimer.interval() / 1000.0);
    return tr("Reading it brought the reading process down");
}
