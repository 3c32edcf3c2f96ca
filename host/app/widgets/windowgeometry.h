// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QVector>

class QSettings;
class QWidget;

/// The place of a window when it was last closed. Logical pixels in the coordinates of the desktop.
///
/// QWidget::restoreGeometry() does not serve: it keeps room for the window system's title bar, which the window lacks,
/// and so moves a window that stood at the top of the screen down and out of it.
struct WindowGeometry
{
    QRect normal;  ///< When it is not maximised; null if nothing was saved.
    bool maximized = false;

    [[nodiscard]] static WindowGeometry of(const QWidget& window);
    [[nodiscard]] static WindowGeometry load(const QSettings& settings);
    void save(QSettings& settings) const;
    /// Moves and resizes \a window, which is not shown yet, and sets its maximised state.
    void applyTo(QWidget& window) const;
};

/// Resizes \a window, which is not shown yet, and moves it so that all of it is on its screen. A size larger than the
/// screen's available area is cut to it.
void resizeOnScreen(QWidget& window, const QSize& size);

/// \a wanted, moved and cut so that it lies within \a screen.
[[nodiscard]] QRect insideScreen(const QRect& wanted, const QRect& screen);

/// \a kept, cut to the size of its screen, if enough of its top is on one of \a screens (their available areas) to drag
/// it; otherwise a rectangle of \a fallback size in the centre of the first screen.
[[nodiscard]] QRect placedOnScreen(const QRect& kept, const QSize& fallback, const QVector<QRect>& screens);
