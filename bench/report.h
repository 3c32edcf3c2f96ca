// SPDX-License-Identifier: MIT
#pragma once

#include "bench/result.h"

#include <QString>
#include <QVector>

namespace bench {

/// Writes a line for each result, and the growth of each operation from size to size as the exponent e of n^e.
void printTable(const QVector<Result>& results);

/// Writes an array of objects with operation, n, median_ms, baseline_ms, ratio (bytes instead of milliseconds for
/// memory; 0 for a baseline and a ratio that there are none of). False with a word on the standard error when the file
/// cannot be written.
bool writeJson(const QVector<Result>& results, const QString& path);

}  // namespace bench
