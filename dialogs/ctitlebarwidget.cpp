// SPDX-License-Identifier: MIT
#include "dialogs/ctitlebarwidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QWindow>

namespace {
constexpr int elementSize = 22;  // Logical pixels: fills a bar of 30 with a margin of 4.
}  // namespace

CTitleBarWidget::CTitleBarWidget(bool closeButton, bool logo, bool title, bool movable, int margin, QWidget* parent)
    : QWidget(parent)
    , m_movable(movable)
{
    buildElements();
    layOutElements(margin);
    setLogoVisible(logo);
    setTitleVisible(title);
    setCloseButtonVisible(closeButton);
}

void CTitleBarWidget::setTitle(const QString& title)
{
    m_title->setText(title);
}

void CTitleBarWidget::setLogoVisible(bool visible)
{
    m_logo->setVisible(visible);
}

void CTitleBarWidget::setTitleVisible(bool visible)
{
    m_title->setVisible(visible);
}

void CTitleBarWidget::setCloseButtonVisible(bool visible)
{
    m_closeButton->setVisible(visible);
}

void CTitleBarWidget::mousePressEvent(QMouseEvent* event)
{
    QWindow* handle = window()->windowHandle();
    if (m_movable && event->button() == Qt::LeftButton && handle)
        handle->startSystemMove();
    else
        QWidget::mousePressEvent(event);
}

void CTitleBarWidget::buildElements()
{
    m_logo = new QLabel(this);
    m_logo->setObjectName(QStringLiteral("title_bar_logo"));
    m_logo->setFixedSize(elementSize, elementSize);

    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("title_bar_title"));
    m_title->setTextFormat(Qt::PlainText);

    m_closeButton = new QPushButton(this);
    m_closeButton->setObjectName(QStringLiteral("title_bar_close_btn"));
    m_closeButton->setAccessibleName(tr("Close"));
    m_closeButton->setFixedSize(elementSize, elementSize);
    m_closeButton->setFocusPolicy(Qt::NoFocus);
    connect(m_closeButton, &QPushButton::clicked, this, &CTitleBarWidget::signalCloseBtnClicked);
}

void CTitleBarWidget::layOutElements(int margin)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(m_logo);
    layout->addWidget(m_title);
    layout->addStretch();
    layout->addWidget(m_closeButton);
}
