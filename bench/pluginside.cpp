// SPDX-License-Identifier: MIT
#include "bench/pluginside.h"

#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/vltaglistview.h"
#include "tests/support/memoryhost.h"
#include "window/page/vltagsearchlineedit.h"
#include "window/vltagmanagerwidget.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

namespace {

const QSize windowSize(1100, 700);

}  // namespace

bench::PluginSide::PluginSide(MemoryHost* host)
    : m_host(host)
{
}

bench::PluginSide::~PluginSide()
{
    m_window.reset();
    VLTagManagerSingleton::instance()->clear();
    VLTagManagerSingleton::instance()->setTagColorProvider(nullptr);
}

void bench::PluginSide::open()
{
    VLTagManagerSingleton::instance()->setTagColorProvider(m_host->palette());
    VLTagManagerSingleton::instance()->setDataProvider(m_host->library());
    m_window = std::make_unique<VLTagManagerWidget>();
    m_window->resize(windowSize);
    m_window->show();
}

QWidget* bench::PluginSide::window() const
{
    return m_window.get();
}

QScrollBar* bench::PluginSide::scrollBar() const
{
    return scrollArea()->verticalScrollBar();
}

/// An opaque content keeps updates of the viewport behind it from being painted.
QWidget* bench::PluginSide::viewport() const
{
    return scrollArea()->widget();
}

void bench::PluginSide::setWidth(int width)
{
    m_window->resize(width, windowSize.height());
}

void bench::PluginSide::search(const QString& text)
{
    page()->findChild<VLTagSearchLineEdit*>()->setText(text);
}

/// The window has followed the tag's signal by itself.
void bench::PluginSide::follow(qint64) {}

int bench::PluginSide::shownTags() const
{
    int count = 0;
    const auto lists = viewport()->findChildren<VLTagListView*>();
    for (const VLTagListView* list : lists)
        count += list->isVisible() ? list->model()->rowCount() : 0;
    return count;
}

QWidget* bench::PluginSide::page() const
{
    return m_window->findChild<QStackedWidget*>()->currentWidget();
}

QScrollArea* bench::PluginSide::scrollArea() const
{
    return page()->findChild<QScrollArea*>(QStringLiteral("all_tag_scroll"));
}
