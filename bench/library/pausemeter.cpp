// SPDX-License-Identifier: MIT
#include "bench/library/pausemeter.h"

#include <algorithm>

bench::PauseMeter::PauseMeter(Clock clock)
    : m_clock(clock == Clock::Wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID)
{
}

void bench::PauseMeter::start()
{
    m_longest = 0;
    m_last = milliseconds(m_clock);
    m_timer.start(1, Qt::PreciseTimer, this);
}

double bench::PauseMeter::stop()
{
    m_timer.stop();
    look();
    return m_longest;
}

void bench::PauseMeter::timerEvent(QTimerEvent*)
{
    look();
}

void bench::PauseMeter::look()
{
    const double time = milliseconds(m_clock);
    m_longest = std::max(m_longest, time - m_last);
    m_last = time;
}
