// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

#include <algorithm>

namespace bench {

/// 0 for no values.
inline double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values.at(values.size() / 2);
}

}  // namespace bench
