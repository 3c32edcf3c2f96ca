// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>
#include <functional>

namespace bench {

enum class Clock
{
    Wall,      ///< What a person waits.
    Processor  ///< What is computed: for machines that have other work to do.
};

/// What a clock of the system shows, in milliseconds.
double milliseconds(clockid_t clock);
/// Milliseconds since some moment, or those that the processors spent on this process.
double now(Clock clock);

/// Runs the event loop until there is nothing left to do at once: layouts are settled, what was to be painted is
/// painted, what was to be deleted is gone. Timers that are not due yet are not waited for.
void settle();

/// Milliseconds from the start of \a cause to the end of the painting that follows from it.
double timeToPaint(Clock clock, const std::function<void()>& cause);

}  // namespace bench
