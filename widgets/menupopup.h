// SPDX-License-Identifier: MIT
#pragma once

class QMenu;
class QPoint;
class QRect;

/// Pops \a menu up with its upper left corner at \a place, in logical pixels of the screen. The menu is laid out once
/// off screen first, so that its size is known; placement at the edges of the screen is left to QMenu. Entries that are
/// too wide for a menu of fixed width get a narrower face. Does not block.
void popUpMenu(QMenu* menu, const QPoint& place);
/// popUpMenu() below \a item, in logical pixels of the screen, or above it where there is no room below.
void popUpMenuBeside(QMenu* menu, const QRect& item);
/// popUpMenu() at the mouse cursor.
void popUpMenuAtCursor(QMenu* menu);

/// For owners that go while an entry of their menu is being carried out: Qt still uses the menu when the entry has
/// returned. Takes \a menu from its parent and deletes it from the event loop.
void deleteMenuSoon(QMenu* menu);
