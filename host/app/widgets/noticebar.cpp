// SPDX-License-Identifier: MIT
#include "host/app/widgets/noticebar.h"

#include "host/app/widgets/flatbuttonstyle.h"
#include "host/app/widgets/wrappedlabel.h"

#include <vlskinsetting.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr int sideMargin = 20;
constexpr int verticalMargin = 8;
constexpr int timeToRead = 12000;  // milliseconds

}  // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QWidget(parent)
    , m_text(new WrappedLabel(this))
{
    setObjectName(QStringLiteral("notice_bar"));
    setAttribute(Qt::WA_StyledBackground);
    m_text->setObjectName(QStringLiteral("notice_bar_text"));
    auto* dismiss = new QPushButton(tr("Dismiss"), this);
    dismiss->setObjectName(QStringLiteral("notice_bar_dismiss"));
    dismiss->setFocusPolicy(Qt::NoFocus);
    connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(sideMargin, verticalMargin, sideMargin, verticalMargin);
    layout->setSpacing(12);
    layout->addWidget(m_text, 1);
    layout->addWidget(dismiss, 0, Qt::AlignVCenter);
    m_leaving.setInterval(timeToRead);
    connect(&m_leaving, &QTimer::timeout, this, &NoticeBar::leave);
    applySkin();
    hide();
}

void NoticeBar::showNotice(const QString& text)
{
    m_text->setText(text);
    m_leaving.start();
    show();
}

void NoticeBar::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    hide();
}

void NoticeBar::leave()
{
    if (!QApplication::activeModalWidget() && !underMouse())
        hide();
}

void NoticeBar::applySkin()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet = QStringLiteral("#notice_bar { border-top: 1px solid %1; }"
                                         "WrappedLabel { color: %2; font-size: 12px; }");
    setStyleSheet(sheet.arg(skin->GetPopupWinBorderColor().name(), skin->GetTextColor(1).name()) + flatButtonStyle());
}
