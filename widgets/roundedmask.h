// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>

/// The pixels that a rounded rectangle of that size touches, those that it covers in part included; logical pixels.
///
/// As the mask of a translucent window it changes nothing where windows are composed, and keeps the corners of the
/// window from being black where they are not.
[[nodiscard]] QRegion roundedMask(const QSize& size, int radius);
