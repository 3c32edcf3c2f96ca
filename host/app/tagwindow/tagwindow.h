// SPDX-License-Identifier: MIT
#pragma once

#include "host/app/commands/commandline.h"

#include <QVector>

class QLineEdit;
class QWidget;

/// The tag manager window as the host may look at it: through its public tree of objects. The window is the plug-in's.
namespace TagWindow {

/// Height of the strip above the pages, whose empty places belong to the frame; logical pixels.
[[nodiscard]] int stripHeight(const QWidget& window);

/// Clicks the button of \a page. False when there is no such button.
bool showPage(const QWidget& window, CommandLine::Page page);

/// The search fields of all pages.
[[nodiscard]] QVector<QLineEdit*> searchFields(const QWidget& window);

/// The page that a search field stands on; null when it stands on none.
[[nodiscard]] const QWidget* pageOf(const QLineEdit& searchField);

/// The search field of the page that is shown; null when that page has none.
[[nodiscard]] QLineEdit* searchField(const QWidget& window);

/// Gives the search field the keyboard; goes to the first page when the one that is shown has none.
void focusSearch(const QWidget& window);

}  // namespace TagWindow
