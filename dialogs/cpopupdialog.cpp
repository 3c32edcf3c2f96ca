// SPDX-License-Identifier: MIT
#include "dialogs/cpopupdialog.h"

#include "dialogs/cpopuptitlebarwidget.h"
#include "dialogs/styletext.h"
#include "widgets/roundedmask.h"

#include <vlskinsetting.h>

#include <QGridLayout>
#include <QIcon>
#include <QPainter>
#include <QStyleOption>
#include <QVBoxLayout>

namespace {
constexpr int titleBarMargin = 4;  // Logical pixels.
constexpr int cornerRadius = 8;    // Logical pixels.
}  // namespace

CPopupDialog::CPopupDialog(QWidget* parent, bool closeButton, bool logo, bool title, bool movable, bool deleteOnClose)
    : QDialog(parent, Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_DeleteOnClose, deleteOnClose);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowIcon(QIcon(VLSkinSetting::GetInstance()->GetResourceAbsolutePath(QStringLiteral("nav_logo.svg"))));
    buildFrame(closeButton, logo, title, movable);
    styleFrame();
}

void CPopupDialog::showPopup()
{
    setModal(true);
    open();
}

void CPopupDialog::setTitleBarHeight(int height)
{
    if (m_titleBar)
        m_titleBar->setFixedHeight(height);
}

void CPopupDialog::setLogoVisible(bool visible)
{
    if (m_titleBar)
        m_titleBar->setLogoVisible(visible);
}

void CPopupDialog::setCloseButtonVisible(bool visible)
{
    if (m_titleBar)
        m_titleBar->setCloseButtonVisible(visible);
}

void CPopupDialog::slotCloseBtnClicked(bool checked)
{
    Q_UNUSED(checked)
    close();
}

void CPopupDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    setMask(roundedMask(size(), cornerRadius));
}

void CPopupDialog::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

void CPopupDialog::buildFrame(bool closeButton, bool logo, bool title, bool movable)
{
    m_mainWidget = new QWidget(this);
    m_mainWidget->setObjectName(QStringLiteral("wid_main"));
    auto* mainLayout = new QGridLayout(this);
    mainLayout->setObjectName(QStringLiteral("main_layout"));
    mainLayout->setSpacing(0);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->addWidget(m_mainWidget);

    m_titleBar = new CPopupTitleBarWidget(closeButton, logo, title, movable, titleBarMargin, m_mainWidget);
    m_titleBar->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    if (closeButton)
        connect(m_titleBar, SIGNAL(signalCloseBtnClicked(bool)), this, SLOT(slotCloseBtnClicked(bool)));

    auto* frameLayout = new QVBoxLayout(m_mainWidget);
    frameLayout->addWidget(m_titleBar);
    frameLayout->setSpacing(0);
    frameLayout->addStretch();
    frameLayout->setContentsMargins(0, 0, 0, 0);
    m_contentLayout = new QVBoxLayout;
    frameLayout->addLayout(m_contentLayout);
    frameLayout->addStretch();
}

void CPopupDialog::styleFrame()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    m_mainWidget->setStyleSheet(QLatin1String("#wid_main{background-color:") +
                                colorText(skin->GetPopupWinBackgroundColor()) + QLatin1String(";border-radius:") +
                                QString::number(cornerRadius) + QLatin1String("px;border:1px solid; border-color:") +
                                colorText(skin->GetPopupWinBorderColor()) + QLatin1String(";}"));
}
