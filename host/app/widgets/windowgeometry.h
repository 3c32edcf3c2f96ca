// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QVector>

class QSettings;
class QWidget;

/// Where a window stood when it was last closed. Logical pixels in the coordinates of the desktop.
struct WindowGeometry
{
    QRect normal;  ///< Without the maximised state; null when nothing was kept.
    bool maximized = false;

    [[nodiscard]] static WindowGeometry of(const QWidget& window);
    [[nodiscard]] static WindowGeometry load(const QSettings& settings);
    void save(QSettings& settings) const;
    /// Moves and resizes \a window, which is not shown yet, and sets its maximised state.
    void applyTo(QWidget& window) const;
};

/// \a kept when enough of its top can be seen and reached on one of \a screens (their available areas), made to fit
/// that screen; otherwise a rectangle of \a fallback size in the middle of the first screen.
[[nodiscard]] QRect placedOnScreen(const QRect& kept, const QSize& fallback, const QVector<QRect>& screens);
