// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// When a picture was taken, from the text of Exif ("2024:05:17 10:11:12") or XMP ("2024-05-17T10:11:12+02:00", from
/// the day on): milliseconds since the beginning of 1970 on the camera's own clock, so that a time zone does not count.
/// Nothing for other text, such as the blanks that a camera without a clock writes.
[[nodiscard]] std::optional<qint64> takenTimeFrom(const QString& text);
