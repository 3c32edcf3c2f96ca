// SPDX-License-Identifier: MIT
#include "ivltagmanagerwidget.h"

IVLTagManagerWidget::IVLTagManagerWidget(QWidget* parent)
    : QWidget(parent)
{
}

IVLTagManagerWidget::~IVLTagManagerWidget() = default;
