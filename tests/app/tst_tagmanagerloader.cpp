// SPDX-License-Identifier: MIT
#include "host/app/tagmanagerloader.h"

#include <iplugin.h>

#include <QLibraryInfo>
#include <QTemporaryFile>
#include <QTest>
#include <QUuid>

/// Which files are taken for the plug-in, and what is said of the others.
class TestTagManagerLoader : public QObject
{
    Q_OBJECT

private slots:
    void thePluginIsLoaded();
    void otherFilesAreRefused_data();
    void otherFilesAreRefused();
};

void TestTagManagerLoader::thePluginIsLoaded()
{
    TagManagerLoader loader;
    QString error;
    QVERIFY2(loader.load(QStringLiteral(PLUGIN_FILE), &error), qPrintable(error));
    QVERIFY(loader.tagManager());
    QCOMPARE(loader.plugin()->pluginId(), QUuid("{74aab3cb-d246-48c9-9619-042f5f108220}"));
}

void TestTagManagerLoader::otherFilesAreRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("complaint");

    const QString imagePlugin = QLibraryInfo::location(QLibraryInfo::PluginsPath) + "/imageformats/libqsvg.so";
    QTest::newRow("no such file") << "/nowhere/plugin.so"
                                  << "/nowhere/plugin.so is not a plug-in: ";
    QTest::newRow("text") << QString() << " is not a plug-in: ";
    QTest::newRow("a library") << QLibraryInfo::location(QLibraryInfo::LibrariesPath) + "/libQt5Core.so.5"
                               << " is not a plug-in: ";
    QTest::newRow("another plug-in") << imagePlugin << " is not a tag manager plug-in, it is made for org.qt-project.";
}

void TestTagManagerLoader::otherFilesAreRefused()
{
    QFETCH(QString, file);
    QFETCH(QString, complaint);
    QTemporaryFile text(QStringLiteral("XXXXXX.so"));
    if (file.isEmpty()) {
        QVERIFY(text.open());
        text.write("not a library at all");
        text.flush();
        file = text.fileName();
    }

    TagManagerLoader loader;
    QString error;
    QVERIFY(!loader.load(file, &error));
    QVERIFY2(error.contains(complaint), qPrintable(error));
    QVERIFY(!loader.tagManager());
}

QTEST_GUILESS_MAIN(TestTagManagerLoader)
#include "tst_tagmanagerloader.moc"
