// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace bench {

/// What one operation cost on both sides, medians over the runs.
struct Result
{
    QString operation;
    int n = 0;
    double plugin = 0;    ///< Milliseconds; bytes for memory.
    double baseline = 0;  ///< The same for the baseline; 0 when there is nothing to compare with.

    [[nodiscard]] double ratio() const { return baseline > 0 ? plugin / baseline : 0; }
};

}  // namespace bench
