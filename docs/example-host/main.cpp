// SPDX-License-Identifier: MIT
#include "library.h"
#include "records.h"

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

QSharedPointer<Library> exampleLibrary()
{
    const auto tags = QSharedPointer<TagLibrary>::create();
    for (const char* name : {"Architecture", "Birds", "Harbour", "Portrait", "山水"})
        tags->addTag(QString::fromUtf8(name), 0);
    tags->addCategory(QStringLiteral("Outdoors"));
    tags->refresh();
    return QSharedPointer<Library>::create(tags);
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

    Palette palette;
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
