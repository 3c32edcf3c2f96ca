// SPDX-License-Identifier: MIT
#include "plugin/vltagmnagerplugin.h"

#include "plugin/state/tagitem.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "window/vltagmanagerwidget.h"

#include <ilibrarydataprovider.h>

VLTagMnagerPlugin::VLTagMnagerPlugin(QObject* parent)
    : QObject(parent)
    , m_state(VLTagManagerSingleton::instance())
{
    registerTagItemMetaType();
}

VLTagMnagerPlugin::~VLTagMnagerPlugin()
{
    if (m_state)
        m_state->clear();
}

QObject* VLTagMnagerPlugin::pluginObject()
{
    return this;
}

QUuid VLTagMnagerPlugin::pluginId()
{
    return QUuid(QStringLiteral("{74aab3cb-d246-48c9-9619-042f5f108220}"));
}

void VLTagMnagerPlugin::pluginInfo(PluginInfo& info)
{
    info.name = tr("tag manager module");
    info.description = tr("tag manager module");
    info.version = QStringLiteral("1.0");
    info.author = QStringLiteral("The Vellum authors");
    info.url = QUrl(QStringLiteral("https://vellum.example/"));
}

bool VLTagMnagerPlugin::initialize()
{
    return true;
}

bool VLTagMnagerPlugin::uninitialize()
{
    m_dataProvider.reset();
    return true;
}

bool VLTagMnagerPlugin::activate()
{
    return true;
}

bool VLTagMnagerPlugin::deactivate()
{
    return true;
}

IVLTagManagerWidget* VLTagMnagerPlugin::createTagManagerWidget(QWidget* parent)
{
    const QPointer<QWidget> owner(parent);
    auto* window = new VLTagManagerWidget(parent);
    // The host may delete the parent, and the window with it, from inside what the window reads while it is built.
    return parent && !owner ? nullptr : window;
}

void VLTagMnagerPlugin::setDataProvider(const QSharedPointer<ILibraryDataProvider>& provider)
{
    m_dataProvider = provider;
    VLTagManagerSingleton::instance()->setDataProvider(m_dataProvider);
}

void VLTagMnagerPlugin::clearDataProvider()
{
    m_dataProvider.reset();
    VLTagManagerSingleton::instance()->setDataProvider({});
}

void VLTagMnagerPlugin::setTagColorProvider(ITagColorProvider* provider)
{
    VLTagManagerSingleton::instance()->setTagColorProvider(provider);
}
