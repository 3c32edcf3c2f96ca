// SPDX-License-Identifier: MIT
#pragma once

#include "bench/stopwatch.h"

#include <QBasicTimer>
#include <QObject>

namespace bench {

/// Looks every millisecond from the event loop of its thread whether it still gets a turn.
class PauseMeter : public QObject
{
public:
    /// By the processor's clock only what this thread computes itself counts.
    explicit PauseMeter(Clock clock);

    void start();
    /// The longest time between two turns since start(), in milliseconds.
    double stop();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void look();

    clockid_t m_clock;
    QBasicTimer m_timer;
    double m_last = 0;
    double m_longest = 0;
};

}  // namespace bench
