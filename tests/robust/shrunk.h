// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

/// Leaves out as many steps as can be spared while \a fails stays true.
template <typename Step, typename Fails>
QVector<Step> shrunk(QVector<Step> steps, const Fails& fails)
{
    for (int size = steps.size() / 2; size > 0;) {
        const int before = steps.size();
        for (int start = 0; start + size <= steps.size();) {
            QVector<Step> fewer = steps;
            fewer.remove(start, size);
            if (fails(fewer))
                steps = fewer;
            else
                start += size;
        }
        if (size > 1 || steps.size() == before)
            size /= 2;
    }
    return steps;
}
