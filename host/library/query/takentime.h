// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// When pictures were taken: on the camera's own clock, which knows no time zone, in milliseconds since the beginning
/// of 1970 on that clock.
namespace takentime {

struct Range
{
    qint64 from;
    qint64 until;  ///< The first moment after.
};

/// From YYYY, YYYY-MM or YYYY-MM-DD, or two of them with ".." between, of which one may be missing. Nothing for other
/// text and for a range that ends before it begins.
[[nodiscard]] std::optional<Range> range(const QString& text);

}  // namespace takentime
