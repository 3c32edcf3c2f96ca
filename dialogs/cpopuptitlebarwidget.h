// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/ctitlebarwidget.h"

/// The title bar of popup dialogs, in the skin's colours and with its images. Object name "popup_title_bar".
class CPopupTitleBarWidget : public CTitleBarWidget
{
    Q_OBJECT

public:
    /// As for CTitleBarWidget.
    CPopupTitleBarWidget(bool closeButton, bool logo, bool title, bool movable, int margin, QWidget* parent = nullptr);

private:
    void applySkin();
};
