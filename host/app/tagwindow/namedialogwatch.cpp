// SPDX-License-Identifier: MIT
#include "host/app/tagwindow/namedialogwatch.h"

#include <QApplication>
#include <QEvent>
#include <QPushButton>

NameDialogWatch::NameDialogWatch(QWidget& tagWindow)
    : QObject(&tagWindow)
{
    tagWindow.installEventFilter(this);
}

void NameDialogWatch::allowAnotherTry()
{
    if (!m_dialog)
        return;
    const auto buttons = m_dialog->findChildren<QPushButton*>(QStringLiteral("tag_popup_btn"));
    for (QPushButton* button : buttons)
        button->setEnabled(true);
}

bool NameDialogWatch::eventFilter(QObject* watched, QEvent* event)
{
    // What a modal dialog does to the window below it.
    if (event->type() == QEvent::WindowBlocked) {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog && dialog->inherits("VLTagModifyWidget")) {
            m_dialog = dialog;
            m_isOpen = true;
            emit opened();
        }
    } else if (event->type() == QEvent::WindowUnblocked && m_isOpen) {
        m_isOpen = false;
        emit closed();
    }
    return QObject::eventFilter(watched, event);
}
