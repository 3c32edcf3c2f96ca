// SPDX-License-Identifier: MIT
#include "records.h"
#include "requests.h"
#include "store.h"

#include <ivltagmanagercontrol.h>
#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>

#include <QApplication>
#include <QDebug>
#include <QFileInfo>
#include <QPluginLoader>
#include <QShortcut>
#include <QTimer>

#include <memory>

namespace {

QSharedPointer<ILibraryDataProvider> exampleLibrary()
{
    const auto store = QSharedPointer<example::TagStore>::create();
    store->addTags(QStringList{"Architecture", "Birds", "Harbour", "Portrait", "山水"});
    store->addGroup(QStringLiteral("Outdoors"));
    const auto library = QSharedPointer<example::Library>::create();
    library->manager = store->sharedManager();
    library->tagRequests = QSharedPointer<example::TagRequests>::create(store);
    library->groupRequests = QSharedPointer<example::GroupRequests>::create(store);
    return library;
}

void connectWindow(IVLTagManagerWidget* window)
{
    QObject::connect(window, &IVLTagManagerWidget::signalCheckoutTagFile, window,
                     [](const QVector<qint64>& ids) { qInfo() << "show the files of the tags" << ids; });
    QObject::connect(window, &IVLTagManagerWidget::signalCheckoutGroupFile, window,
                     [](const QVector<qint64>& ids) { qInfo() << "show the files of the categories" << ids; });
    if (auto* control = qobject_cast<IVLTagManagerControl*>(window)) {
        QObject::connect(control->events(), &VLTagManagerEvents::searchResultActivated, window,
                         [](qint64 tagId) { qInfo() << "show the files of the search result" << tagId; });
        QObject::connect(new QShortcut(QKeySequence::Find, window), &QShortcut::activated, window,
                         [control] { control->focusSearch(); });
    }
    QObject::connect(window, &IVLTagManagerWidget::signalSoftWareMin, window, &QWidget::showMinimized);
    QObject::connect(window, &IVLTagManagerWidget::signalSoftWareClose, window, &QWidget::close);
    QObject::connect(window, &IVLTagManagerWidget::signalSoftWareMax, window, [window] {
        window->setWindowState(window->windowState() ^ Qt::WindowMaximized);
        window->updateMaximizeButton(window->isMaximized());
    });
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments();
    const bool quits = arguments.removeAll(QStringLiteral("--quit")) > 0;
    const QString file = arguments.value(1, QStringLiteral(PLUGIN));

    // A path that is not absolute would be looked for in Qt's own folders.
    QPluginLoader loader(QFileInfo(file).absoluteFilePath());
    auto* plugin = qobject_cast<IVLTagManagerPlugin*>(loader.instance());
    if (!plugin) {
        qCritical() << "no tag manager plug-in:" << loader.errorString();
        return 1;
    }

    example::Palette palette;
    plugin->setTagColorProvider(&palette);
    plugin->setDataProvider(exampleLibrary());

    const std::unique_ptr<IVLTagManagerWidget> window(plugin->createTagManagerWidget(nullptr));
    connectWindow(window.get());
    window->resize(900, 600);
    window->show();
    if (quits)
        QTimer::singleShot(0, window.get(), &QWidget::close);
    const int status = QApplication::exec();
    plugin->clearDataProvider();
    plugin->setTagColorProvider(nullptr);
    return status;
}
