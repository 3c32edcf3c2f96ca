// SPDX-License-Identifier: MIT
#pragma once

#include "bench/side.h"
#include "bench/stopwatch.h"

#include <QString>

namespace bench {

/// What the library of a measurement holds.
enum class Names
{
    Mixed,    ///< What people write on tags.
    Sections  ///< Every name under an initial of its own.
};

/// What one process is to measure.
struct Task
{
    SideKind side = SideKind::Plugin;
    Names names = Names::Mixed;
    int n = 0;
    Clock clock = Clock::Wall;
    QString operation;  ///< Empty for all of them.
};

/// Opens the window and does what the task asks for, in one window after another step by step. For each operation a
/// line "operation value shown" goes to the standard output: milliseconds (bytes for memory) and how many tags are
/// listed afterwards.
void measure(const Task& task);

}  // namespace bench
