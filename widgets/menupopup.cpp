// SPDX-License-Identifier: MIT
#include "widgets/menupopup.h"

#include <QCursor>
#include <QMenu>

void popUpMenuAtCursor(QMenu* menu)
{
    menu->move(QCursor::pos());
    menu->setAttribute(Qt::WA_DontShowOnScreen, true);
    menu->show();
    menu->hide();
    menu->setAttribute(Qt::WA_DontShowOnScreen, false);
    menu->popup(QCursor::pos());
    menu->raise();
}
