// SPDX-License-Identifier: MIT
#include "host/app/widgets/escapablelineedit.h"

#include <QKeyEvent>

bool EscapableLineEdit::event(QEvent* event)
{
    const bool isEscape =
        event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isEscape && !text().isEmpty()) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void EscapableLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}
