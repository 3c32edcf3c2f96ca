// SPDX-License-Identifier: MIT
#include "tests/support/memoryhost.h"

#include <iplugin.h>
#include <ivltagmanagerplugin.h>
#include <ivltagmanagerwidget.h>

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QPluginLoader>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <memory>

namespace {

const QString pluginFile = QStringLiteral(VELLUM_PLUGIN_FILE);
const QString leaveArgument = QStringLiteral("leave-without-unloading");

/// The plug-in while it is loaded. A loader that goes without an unload would keep it for the whole process.
struct LoadedPlugin
{
    LoadedPlugin()
        : loader(pluginFile)
        , root(loader.instance())
        , plugin(qobject_cast<IPlugin*>(root))
        , tagManager(qobject_cast<IVLTagManagerPlugin*>(root))
    {
    }

    ~LoadedPlugin() { loader.unload(); }

    QPluginLoader loader;
    QPointer<QObject> root;
    IPlugin* plugin;
    IVLTagManagerPlugin* tagManager;
};

/// The tag counter of a window's page of all tags.
QString counter(const QWidget& window)
{
    for (const QLabel* label : window.findChildren<QLabel*>(QStringLiteral("all_tag_count_label"))) {
        if (label->isVisibleTo(&window))
            return label->text();
    }
    return QStringLiteral("no counter");
}

std::unique_ptr<IVLTagManagerWidget> openWindow(IVLTagManagerPlugin* plugin)
{
    std::unique_ptr<IVLTagManagerWidget> window(plugin->createTagManagerWidget(nullptr));
    window->resize(1100, 700);
    window->show();
    return window;
}

}  // namespace

/// The file that hosts load, through Qt's loader only.
class TestPluginFile : public QObject
{
    Q_OBJECT

private slots:
    void carriesItsMetadata()
    {
        const QPluginLoader loader(pluginFile);
        const QJsonObject data = loader.metaData();
        QCOMPARE(data.value(QStringLiteral("IID")).toString(), QStringLiteral("Vellum.Plugin.IVLTagManagerPlugin/1.0"));
        QCOMPARE(data.value(QStringLiteral("className")).toString(), QStringLiteral("VLTagMnagerPlugin"));
        QCOMPARE(data.value(QStringLiteral("debug")).toBool(true), false);
        const QJsonObject expected{{QStringLiteral("Keys"), QJsonArray{QStringLiteral("plg_vltagmanagerplugin")}}};
        QCOMPARE(data.value(QStringLiteral("MetaData")).toObject(), expected);
    }

    void exportsTheTwoEntryPointsOnly()
    {
        QProcess nm;
        nm.start(QStringLiteral("nm"), {QStringLiteral("-D"), QStringLiteral("--defined-only"), pluginFile});
        QVERIFY(nm.waitForFinished());
        QCOMPARE(nm.exitCode(), 0);
        QStringList names;
        for (const QString& line : QString::fromUtf8(nm.readAllStandardOutput()).split(QLatin1Char('\n'))) {
            if (!line.isEmpty())
                names.append(line.section(QLatin1Char(' '), -1));
        }
        names.sort();
        QCOMPARE(names,
                 QStringList({QStringLiteral("qt_plugin_instance"), QStringLiteral("qt_plugin_query_metadata")}));
    }

    void isFoundByIdentifierAndIntroducesItself()
    {
        const LoadedPlugin loaded;
        QObject* root = loaded.root;
        QVERIFY2(root, qPrintable(loaded.loader.errorString()));
        QVERIFY(loaded.plugin && loaded.tagManager);
        QCOMPARE(loaded.plugin->pluginObject(), root);
        QCOMPARE(loaded.tagManager->pluginObject(), root);
        for (const char* name : {"VLTagMnagerPlugin", "IPlugin", "IVLTagManagerPlugin", "Orb.Core.IPlugin/1.0",
                                 "Vellum.Plugin.IVLTagManagerPlugin/1.0", "QObject"})
            QVERIFY2(root->qt_metacast(name), name);
        for (const char* name : {"Orb.Core.IPlugin/1.1", "Orb.Core.IPlugin", "VLTagManagerPlugin", ""})
            QVERIFY2(!root->qt_metacast(name), name);
        QCOMPARE(loaded.plugin->pluginId(), QUuid(QStringLiteral("{74aab3cb-d246-48c9-9619-042f5f108220}")));
        const QString old = QStringLiteral("old");
        PluginInfo info{old, old, old, old, QUrl(old)};
        loaded.plugin->pluginInfo(info);
        QCOMPARE(info.name, QStringLiteral("tag manager module"));
        QCOMPARE(info.description, info.name);
        QCOMPARE(info.version, QStringLiteral("1.0"));
        QVERIFY(!info.author.isEmpty() && info.author != old && info.url.isValid() && info.url != QUrl(old));
    }

    void handsItsProvidersToItsWindows()
    {
        MemoryHost first({QStringLiteral("apple"), QStringLiteral("bee")});
        const MemoryHost second({QStringLiteral("cow")});
        const LoadedPlugin loaded;
        IVLTagManagerPlugin* plugin = loaded.tagManager;
        QVERIFY(plugin);
        plugin->setTagColorProvider(first.palette());
        plugin->setDataProvider(first.library());
        const auto window = openWindow(plugin);
        QCOMPARE(counter(*window), QStringLiteral("(2)"));

        QVERIFY(loaded.plugin->uninitialize());
        QCOMPARE(counter(*openWindow(plugin)), QStringLiteral("(2)"));
        plugin->setDataProvider(second.library());
        QCOMPARE(counter(*openWindow(plugin)), QStringLiteral("(1)"));
        first.addTag(QStringLiteral("dog"));
        QCOMPARE(counter(*window), QStringLiteral("(3)"));
        plugin->clearDataProvider();
        QCOMPARE(counter(*openWindow(plugin)), QString());
        plugin->setTagColorProvider(nullptr);
    }

    void logLinesCarryNoSource()
    {
        const LoadedPlugin loaded;
        const auto window = openWindow(loaded.tagManager);
        static bool hasSource = false;
        static int lines = 0;
        const auto previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString&) {
            ++lines;
            hasSource |= context.file != nullptr || context.function != nullptr;
        });
        QTest::mouseClick(window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn")).last(),
                          Qt::LeftButton);
        qInstallMessageHandler(previous);
        QCOMPARE(lines, 1);
        QVERIFY(!hasSource);
    }

    void loadsAndUnloadsAgainAndAgain()
    {
        MemoryHost host({QStringLiteral("apple"), QString::fromUtf8("中国")});
        host.addGroup(QStringLiteral("Fruit"));
        for (int round = 0; round < 30; ++round) {
            LoadedPlugin loaded;
            QVERIFY2(loaded.tagManager, qPrintable(loaded.loader.errorString()));
            loaded.tagManager->setTagColorProvider(host.palette());
            loaded.tagManager->setDataProvider(host.library());
            auto window = openWindow(loaded.tagManager);
            QCOMPARE(counter(*window), QStringLiteral("(2)"));
            host.setFavorite(1, round % 2 == 0);
            if (round % 3 == 0)
                window.reset();
            QVERIFY(loaded.loader.unload());
            QVERIFY(!loaded.root);
            const qint64 added = host.addTag(QStringLiteral("bee"));
            if (window)
                QCOMPARE(counter(*window), QStringLiteral("(3)"));
            host.removeTags({added});
        }
    }

    void hostMayEndWithoutUnloading()
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(QCoreApplication::applicationFilePath(), {leaveArgument});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }
};

/// A host that ends with the library still set and the plug-in still loaded; it runs in a process of its own.
static int leaveWithoutUnloading()
{
    MemoryHost host({QStringLiteral("apple")});
    QPluginLoader loader(pluginFile);
    auto* plugin = qobject_cast<IVLTagManagerPlugin*>(loader.instance());
    if (!plugin)
        return 1;
    plugin->setTagColorProvider(host.palette());
    plugin->setDataProvider(host.library());
    return counter(*openWindow(plugin)) == QStringLiteral("(1)") ? 0 : 2;
}

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (application.arguments().contains(leaveArgument))
        return leaveWithoutUnloading();
    TestPluginFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pluginfile.moc"
