// SPDX-License-Identifier: MIT
#pragma once

#include <iplugin.h>
#include <ivltagmanagerplugin.h>

#include <QObject>
#include <QPointer>
#include <QSharedPointer>

class VLTagManagerSingleton;

/// The plug-in's root object, created by Qt's plug-in loader. GUI thread only.
class VLTagMnagerPlugin : public QObject, public IPlugin, public IVLTagManagerPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Vellum.Plugin.IVLTagManagerPlugin/1.0" FILE "plg_vltagmanagerplugin.json")
    Q_INTERFACES(IPlugin IVLTagManagerPlugin)

public:
    explicit VLTagMnagerPlugin(QObject* parent = nullptr);
    /// Makes the shared state drop the library, too.
    ~VLTagMnagerPlugin() override;

    QObject* pluginObject() override;

    QUuid pluginId() override;
    void pluginInfo(PluginInfo& info) override;
    bool initialize() override;
    /// Drops this object's own reference to the library; windows that are open keep working.
    bool uninitialize() override;
    bool activate() override;
    bool deactivate() override;

    IVLTagManagerWidget* createTagManagerWidget(QWidget* parent) override;
    void setDataProvider(const QSharedPointer<ILibraryDataProvider>& provider) override;
    void clearDataProvider() override;
    void setTagColorProvider(ITagColorProvider* provider) override;

private:
    QSharedPointer<ILibraryDataProvider> m_dataProvider;
    /// Gone before this object when a host ends without unloading the plug-in.
    QPointer<VLTagManagerSingleton> m_state;
};
