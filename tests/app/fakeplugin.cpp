// SPDX-License-Identifier: MIT
#include "tests/app/fakeplugin.h"

#include <QPushButton>
#include <QStackedWidget>

FakeTagWindow::FakeTagWindow(QWidget* parent)
    : IVLTagManagerWidget(parent)
    , m_pages(new QStackedWidget(this))
{
    for (const int x : {20, 136, 252}) {
        auto* button = new QPushButton(this);
        button->setObjectName(QStringLiteral("tag_manager_title_btn"));
        button->setGeometry(x, 30, 96, 28);
    }
}

void FakeTagWindow::resizeEvent(QResizeEvent* /*event*/)
{
    m_pages->setGeometry(0, stripHeight, width(), height() - stripHeight);
}

IVLTagManagerWidget* FakePlugin::createTagManagerWidget(QWidget* parent)
{
    m_window = new FakeTagWindow(parent);
    return m_window;
}
