// SPDX-License-Identifier: MIT
#include "dialogs/cpopuptitlebarwidget.h"

#include "dialogs/styletext.h"

#include <vlskinsetting.h>

#include <QIcon>
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
    const QIcon logo(skin->GetResourceAbsolutePath(QStringLiteral("nav_logo.svg")));
    logoLabel()->setPixmap(logo.pixmap(closeButton()->iconSize()));

    const QString textColor = colorText(skin->GetTextColor(0));
    titleLabel()->setStyleSheet(QLatin1String("background-color:transparent;border:none;color:") + textColor +
                                QLatin1Char(';'));
    closeButton()->setIcon(QIcon(skin->GetResourceAbsolutePath(QStringLiteral("mainbody_close.svg"))));
    closeButton()->setStyleSheet(QLatin1String("QPushButton{background-color:transparent;border:none;border-radius:4px;"
                                               "padding:0px;}QPushButton:hover{background-color:") +
                                 colorText(skin->GetPopupWinBorderColor()) + QLatin1String(";}"));
}
