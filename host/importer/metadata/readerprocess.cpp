// SPDX-License-Identifier: MIT
#include "host/importer/metadata/readerprocess.h"

#include "host/importer/metadata/confinedprocess.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <sys/socket.h>

namespace {

// The first start on a system may have to read all fonts.
constexpr std::chrono::seconds startLimit(60);
// How much longer than its limit a file may take by the clock.
constexpr int busyFactor = 6;
constexpr int lengthSize = sizeof(quint32);

}  // namespace

ReaderProcess::ReaderProcess(const Settings& settings, QObject* parent)
    : QObject(parent)
    , m_settings(settings)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &ReaderProcess::handleDelay);
}

ReaderProcess::~ReaderProcess() = default;

QString ReaderProcess::downfall()
{
    return tr("Reading it brought the reading process down");
}

void ReaderProcess::read(int index, ReaderRequest request)
{
    m_requests.push_back({index, std::move(request)});
    if (!m_process)
        start();
    sendWaiting();
    if (m_ready && m_requests.size() == 1)
        watchTime();
}

void ReaderProcess::replace()
{
    stop();
    if (!m_requests.empty())
        start();
    sendWaiting();
}

QVector<int> ReaderProcess::takePending()
{
    QVector<int> pending;
    for (const Request& request : m_requests)
        pending.append(request.index);
    m_requests.clear();
    m_sent = 0;
    return pending;
}

void ReaderProcess::start()
{
    if (m_unavailable)
        return;
    QString error;
    m_process = ConfinedProcess::start(m_settings.program, m_settings.option, &error);
    if (!m_process) {
        giveUp(tr("The process that reads pictures cannot be started: %1: %2").arg(m_settings.program, error));
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_process->socket(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ReaderProcess::receive);
    m_timer.start(startLimit);
}

void ReaderProcess::stop()
{
    m_timer.stop();
    m_buffer.clear();
    m_ready = false;
    m_sent = 0;
    if (m_notifier) {
        // Called from its signal, perhaps.
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    m_process.reset();
}

void ReaderProcess::sendWaiting()
{
    while (m_process && m_sent < m_requests.size() &&
           readermessage::sendRequest(m_process->socket(), m_requests[m_sent].request) == 0)
        ++m_sent;
}

void ReaderProcess::watchTime()
{
    m_timer.stop();
    if (m_requests.empty())
        return;
    m_delays = 0;
    m_timeBefore = m_process->processorTime();
    m_timer.start(m_settings.fileLimit);
}

void ReaderProcess::receive()
{
    QByteArray message(readermessage::messageSize, Qt::Uninitialized);
    // An answer may lead to another process, whose messages come by a signal of their own.
    const ConfinedProcess* const process = m_process.get();
    while (process && process == m_process.get()) {
        const ssize_t size = recv(process->socket(), message.data(), size_t(message.size()), MSG_DONTWAIT);
        // A process that leaves requests unread resets the connection, which is said before its last messages.
        if (size < 0 && (errno == EINTR || errno == ECONNRESET))
            continue;
        if (size < 0 && errno == EAGAIN)
            return;
        if (size <= 0) {
            handleEnd();
            return;
        }
        m_buffer.append(message.constData(), int(size));
        readFrames();
    }
}

void ReaderProcess::readFrames()
{
    while (m_process && m_buffer.size() >= lengthSize) {
        quint32 length = 0;
        memcpy(&length, m_buffer.constData(), lengthSize);
        if (length > quint32(readermessage::longestAnswer)) {
            handleEnd();
            return;
        }
        if (quint32(m_buffer.size() - lengthSize) < length)
            return;
        const QByteArray frame = m_buffer.mid(lengthSize, int(length));
        m_buffer.remove(0, lengthSize + int(length));
        if (!m_ready) {
            if (!handleFirstFrame(frame))
                return;
            continue;
        }
        if (m_sent == 0) {
            handleEnd();  // Nothing was asked for.
            return;
        }
        const int index = m_requests.front().index;
        m_requests.pop_front();
        --m_sent;
        sendWaiting();
        watchTime();
        emit answered(index, frame);
    }
}

bool ReaderProcess::handleFirstFrame(const QByteArray& frame)
{
    m_ready = frame == readermessage::ready;
    if (m_ready)
        watchTime();
    else if (frame.startsWith(readermessage::unconfined))
        giveUp(tr("Pictures are not read, because this system cannot confine the process that reads them (%1)")
                   .arg(QString::fromUtf8(frame.mid(int(strlen(readermessage::unconfined))))));
    else
        giveUp(tr("The process that reads pictures is another program: %1").arg(m_settings.program));
    return m_ready;
}

void ReaderProcess::handleDelay()
{
    // The answer may lie in the socket while this thread was busy.
    const size_t pendingBefore = m_requests.size();
    const bool wasReady = m_ready;
    receive();
    if (m_requests.size() < pendingBefore || m_ready != wasReady || !m_process)
        return;
    if (!m_ready) {
        giveUp(tr("The process that reads pictures does not start: %1").arg(m_settings.program));
    } else if (m_sent == 0) {
        sendWaiting();
        watchTime();
    } else if (const auto used = m_process->processorTime() - m_timeBefore;
               used < m_settings.fileLimit && ++m_delays < busyFactor) {
        m_timer.start(m_settings.fileLimit);
    } else {
        failFirst(tr("Reading it took longer than %1 seconds").arg(double(m_settings.fileLimit.count()) / 1000));
    }
}

// Gone, or gone wrong.
void ReaderProcess::handleEnd()
{
    if (!m_ready)
        giveUp(tr("The process that reads pictures ended at once: %1").arg(m_settings.program));
    else if (m_sent > 0)
        failFirst(downfall());
    else
        replace();
}

void ReaderProcess::giveUp(const QString& reason)
{
    stop();
    m_unavailable = true;
    emit unavailable(reason);
}

void ReaderProcess::failFirst(const QString& reason)
{
    // The socket is closed with the process: what may still be written to it answers no other file.
    const int index = m_requests.front().index;
    m_requests.pop_front();
    replace();
    emit failed(index, reason);
}
