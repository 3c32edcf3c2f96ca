// SPDX-License-Identifier: MIT
#include "bench/stopwatch.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QThread>

double bench::milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double bench::now(Clock clock)
{
    return milliseconds(clock == Clock::Wall ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID);
}

void bench::settle()
{
    QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance(QThread::currentThread());
    do {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (dispatcher->processEvents(QEventLoop::AllEvents));
}

double bench::timeToPaint(Clock clock, const std::function<void()>& cause)
{
    const double start = now(clock);
    cause();
    settle();
    return now(clock) - start;
}
