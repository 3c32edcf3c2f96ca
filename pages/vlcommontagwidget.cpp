// SPDX-License-Identifier: MIT
#include "pages/vlcommontagwidget.h"

#include "widgets/vlsvgwidget.h"
#include "widgets/vltallboxlayout.h"

#include <vlskinsetting.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

VLCommonTagWidget::VLCommonTagWidget(int type, QWidget* parent)
    : VLAllTagWidget(type, parent)
{
}

VLCommonTagWidget::~VLCommonTagWidget() = default;

void VLCommonTagWidget::initialise(const QSharedPointer<ITagGroupDataProvider>& provider)
{
    VLAllTagWidget::initialise(provider);
    m_titleLayout->setContentsMargins(21, 2, 0, 0);
    m_mainLayout->setContentsMargins(46, 2, 0, 0);
    m_contentLayout->setContentsMargins(3, 16, 0, 0);
    m_createButton->hide();
    m_countLabel->hide();
    VLSkinSetting::GetInstance()->SetWidgetStyleSheetWithQssName(this, QStringLiteral("tagmanager"));
}
