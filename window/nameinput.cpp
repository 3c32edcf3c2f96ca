// SPDX-License-Identifier: MIT
#include "window/nameinput.h"

#include "dialogs/vltagmodifywidget.h"

#include <utility>

NameInput::NameInput(QObject* parent)
    : QObject(parent)
{
}

NameInput::~NameInput() = default;

void NameInput::follow(VLTagModifyWidget* dialog)
{
    connect(dialog, &QDialog::finished, this, [this, dialog] { leave(dialog); });
    // A dialog whose window is hidden closes without finishing.
    connect(dialog, &QObject::destroyed, this, &NameInput::leave);
    m_dialogs.append(dialog);
    report();
}

void NameInput::allowAgain()
{
    for (QObject* dialog : qAsConst(m_dialogs))
        static_cast<VLTagModifyWidget*>(dialog)->allowAgain();
}

void NameInput::leave(QObject* dialog)
{
    if (m_dialogs.removeOne(dialog))
        QMetaObject::invokeMethod(this, &NameInput::report, Qt::QueuedConnection);
}

void NameInput::report()
{
    if (std::exchange(m_isReported, isOpen()) == isOpen())
        return;
    if (isOpen())
        emit started();
    else
        emit finished();
}
