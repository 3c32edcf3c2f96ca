// SPDX-License-Identifier: MIT
#pragma once

namespace bench {

/// Of this process, in KiB, as the kernel counts it.
struct MemoryUsage
{
    long resident = 0;
    long peak = 0;
};

/// Zeros where the system does not tell.
MemoryUsage memoryUsage();

}  // namespace bench
