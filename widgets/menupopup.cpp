// SPDX-License-Identifier: MIT
#include "widgets/menupopup.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QHoverEvent>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QSharedPointer>

namespace {

// Percent of a face's natural width, below which letters stop being readable.
constexpr int narrowestFace = 70;

void setFaceWidth(QAction* action, int percent)
{
    QFont font;
    if (percent != 100)
        font.setStretch(percent);
    action->setFont(font);
}

// The widest entry widens the rows of all, so that in a menu of fixed width they would run past its edge: arrows of
// sub-menus out of sight, text cut off. Entries that are too wide are set in a narrower face instead.
void narrowWideEntries(QMenu* menu)
{
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions)
        setFaceWidth(action, 100);
    menu->ensurePolished();
    if (menu->sizeHint().width() <= menu->maximumWidth())
        return;
    for (QAction* action : actions)
        setFaceWidth(action, narrowestFace);
    const int limit = qMax(menu->sizeHint().width(), menu->maximumWidth());
    for (QAction* action : actions) {
        int percent = 100;
        for (setFaceWidth(action, percent); percent > narrowestFace && menu->sizeHint().width() > limit;
             setFaceWidth(action, percent))
            percent -= 2;
    }
}

// While a menu is open, Qt sends no leave event to the widget below, which would stay highlighted.
void leaveWidgetBelowWhenClosed(QMenu* menu)
{
    const QPointer<QWidget> below = QApplication::widgetAt(QCursor::pos());
    if (!below)
        return;
    const auto connection = QSharedPointer<QMetaObject::Connection>::create();
    *connection = QObject::connect(menu, &QMenu::aboutToHide, below, [below, connection] {
        QObject::disconnect(*connection);
        const QPoint pointer = below->mapFromGlobal(QCursor::pos());
        if (below->rect().contains(pointer) || !below->testAttribute(Qt::WA_Hover))
            return;
        QHoverEvent leave(QEvent::HoverLeave, pointer, pointer);
        QApplication::sendEvent(below, &leave);
    });
}

}  // namespace

void popUpMenuAtCursor(QMenu* menu)
{
    popUpMenu(menu, QCursor::pos());
}

void popUpMenu(QMenu* menu, const QPoint& place)
{
    narrowWideEntries(menu);
    menu->move(place);
    menu->setAttribute(Qt::WA_DontShowOnScreen, true);
    menu->show();
    menu->hide();
    menu->setAttribute(Qt::WA_DontShowOnScreen, false);
    leaveWidgetBelowWhenClosed(menu);
    menu->popup(place);
    menu->raise();
}

void popUpMenuBeside(QMenu* menu, const QRect& item)
{
    const QPoint below = item.bottomLeft() + QPoint(0, 1);
    const QScreen* screen = QGuiApplication::screenAt(item.center());
    narrowWideEntries(menu);
    const int height = menu->sizeHint().height();
    // QMenu would let its lower edge stand at the lower edge of the item and so cover it.
    const bool goesAbove =
        screen && below.y() + height > screen->geometry().bottom() && item.top() - height >= screen->geometry().top();
    popUpMenu(menu, goesAbove ? item.topLeft() - QPoint(0, height) : below);
}

void deleteMenuSoon(QMenu* menu)
{
    menu->hide();
    menu->setParent(nullptr);
    menu->deleteLater();
}
