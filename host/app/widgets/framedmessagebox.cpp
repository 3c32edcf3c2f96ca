// SPDX-License-Identifier: MIT
#include "host/app/widgets/framedmessagebox.h"

#include "host/app/widgets/flatbuttonstyle.h"

#include <vlskinsetting.h>

FramedMessageBox::FramedMessageBox(QWidget* parent)
    : QMessageBox(parent)
{
    setWindowFlag(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    setTextFormat(Qt::PlainText);
    const QColor border = VLSkinSetting::GetInstance()->GetPopupWinBorderColor();
    setStyleSheet(QStringLiteral("QMessageBox { border: 1px solid %1; }").arg(border.name()) + flatButtonStyle());
}
