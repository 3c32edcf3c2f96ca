// SPDX-License-Identifier: MIT
#include "host/app/commands/interruptsignal.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int caughtSignals[] = {SIGINT, SIGTERM};

// The signal handler may call async-signal-safe functions only, so it writes to a pipe.
int pipeEnds[2] = {-1, -1};
struct sigaction previousActions[2];

void handleSignal(int)
{
    const int errnoBefore = errno;
    for (const int caught : caughtSignals)
        signal(caught, SIG_DFL);
    const char byte = 0;
    const ssize_t written = write(pipeEnds[1], &byte, 1);
    Q_UNUSED(written)  // A full pipe holds news enough.
    errno = errnoBefore;
}

}  // namespace

InterruptSignal::InterruptSignal(QObject* parent)
    : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;  // Without descriptors for it, the signals keep ending the program at once.
    m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &InterruptSignal::readPipe);
    struct sigaction action = {};
    action.sa_handler = handleSignal;
    action.sa_flags = SA_RESTART;
    for (int i = 0; i < 2; ++i)
        sigaction(caughtSignals[i], &action, &previousActions[i]);
}

InterruptSignal::~InterruptSignal()
{
    if (!m_notifier)
        return;
    for (int i = 0; i < 2; ++i)
        sigaction(caughtSignals[i], &previousActions[i], nullptr);
    delete m_notifier;
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

void InterruptSignal::readPipe()
{
    char bytes[16];
    while (read(pipeEnds[0], bytes, sizeof bytes) > 0) {
    }
    emit interrupted();
}
