// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtPlugin>
#include <QUrl>
#include <QUuid>

/// What a plug-in says of itself; every text may be shown to the user.
struct PluginInfo
{
    QString name;
    QString description;
    QString version;
    QString author;
    QUrl url;
};

/// The host's general plug-in interface. All operations are called on the GUI thread.
///
/// The number behind each operation is its place in the virtual table, which is part of the binary contract.
/// The interface has no virtual destructor: a host destroys the object returned by pluginObject() instead.
class IPlugin
{
public:
    /// [0] The root object, owned by the plug-in loader.
    virtual QObject* pluginObject() = 0;
    /// [1] The same identifier on every call.
    virtual QUuid pluginId() = 0;
    /// [2] Overwrites all five fields of \a info.
    virtual void pluginInfo(PluginInfo& info) = 0;
    /// [3] False when the plug-in cannot be used; the host does without it then.
    virtual bool initialize() = 0;
    /// [4] Drops the plug-in's reference to the library. False when something could not be released.
    virtual bool uninitialize() = 0;
    /// [5] False when the plug-in stays inactive.
    virtual bool activate() = 0;
    /// [6] False when the plug-in stays active.
    virtual bool deactivate() = 0;

protected:
    ~IPlugin() = default;
};

Q_DECLARE_INTERFACE(IPlugin, "Orb.Core.IPlugin/1.0")
