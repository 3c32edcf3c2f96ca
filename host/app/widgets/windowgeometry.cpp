// SPDX-License-Identifier: MIT
#include "host/app/widgets/windowgeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include <algorithm>

namespace {

// The part of the window's top that must be on a screen so that the user can drag it, in logical pixels.
constexpr QSize reachable(120, 30);
constexpr QSize defaultSize(1100, 700);

QVector<QRect> availableScreens()
{
    QVector<QRect> areas;
    areas.append(QGuiApplication::primaryScreen()->availableGeometry());
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        if (screen != QGuiApplication::primaryScreen())
            areas.append(screen->availableGeometry());
    }
    return areas;
}

}  // namespace

WindowGeometry WindowGeometry::of(const QWidget& window)
{
    return {window.isMaximized() ? window.normalGeometry() : window.geometry(), window.isMaximized()};
}

WindowGeometry WindowGeometry::load(const QSettings& settings)
{
    return {settings.value(QStringLiteral("window/geometry")).toRect(),
            settings.value(QStringLiteral("window/maximized")).toBool()};
}

void WindowGeometry::save(QSettings& settings) const
{
    settings.setValue(QStringLiteral("window/geometry"), normal);
    settings.setValue(QStringLiteral("window/maximized"), maximized);
}

void WindowGeometry::applyTo(QWidget& window) const
{
    window.setGeometry(placedOnScreen(normal, defaultSize, availableScreens()));
    if (maximized)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void resizeOnScreen(QWidget& window, const QSize& size)
{
    const QScreen* screen = QGuiApplication::screenAt(window.geometry().center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    window.setGeometry(insideScreen(QRect(window.pos(), size), screen->availableGeometry()));
}

QRect insideScreen(const QRect& wanted, const QRect& screen)
{
    QRect inside(wanted.topLeft(), wanted.size().boundedTo(screen.size()));
    inside.moveLeft(std::clamp(inside.left(), screen.left(), screen.right() + 1 - inside.width()));
    inside.moveTop(std::clamp(inside.top(), screen.top(), screen.bottom() + 1 - inside.height()));
    return inside;
}

QRect placedOnScreen(const QRect& kept, const QSize& fallback, const QVector<QRect>& screens)
{
    const QRect top(kept.topLeft(), QSize(kept.width(), reachable.height()));
    for (const QRect& screen : screens) {
        const QRect visible = top.intersected(screen);
        if (kept.isValid() && visible.width() >= reachable.width() && visible.height() >= reachable.height())
            return {kept.topLeft(), kept.size().boundedTo(screen.size())};
    }
    const QRect screen = screens.value(0);
    QRect middle(QPoint(0, 0), fallback.boundedTo(screen.size()));
    middle.moveCenter(screen.center());
    return middle;
}
