// SPDX-License-Identifier: MIT
#include "dialogs/cpopuptitlebarwidget.h"

#include "dialogs/styletext.h"

#include <vlskinsetting.h>

#include <QLabel>
#include <QPushButton>

CPopupTitleBarWidget::CPopupTitleBarWidget(bool closeButton, bool logo, bool title, bool movable, int margin,
                                           QWidget* parent)
    : CTitleBarWidget(closeButton, logo, title, movable, margin, parent)
{
    setObjectName(QStringLiteral("popup_title_bar"));
    applySkin();
}

void CPopupTitleBarWidget::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    // Images of a style sheet are drawn at the screen's scale, an icon's are not.
    logoLabel()->setStyleSheet(QLatin1String("background-color:transparent;border:none;padding:3px;") +
                               skin->GetResourcePath(QStringLiteral("nav_logo.svg")));
    const QString textColor = colorText(skin->GetTextColor(0));
    titleLabel()->setStyleSheet(QLatin1String("background-color:transparent;border:none;color:") + textColor +
                                QLatin1Char(';'));
    closeButton()->setStyleSheet(QLatin1String("QPushButton{background-color:transparent;border:none;border-radius:4px;"
                                               "padding:3px;") +
                                 skin->GetResourcePath(QStringLiteral("mainbody_close.svg")) +
                                 QLatin1String("}QPushButton:hover{background-color:") +
                                 colorText(skin->GetPopupWinBorderColor()) + QLatin1String(";}"));
}
