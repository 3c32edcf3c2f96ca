// SPDX-License-Identifier: MIT
#pragma once

#include <QSharedPointer>
#include <QtPlugin>

class ILibraryDataProvider;
class ITagColorProvider;
class IVLTagManagerWidget;
class QWidget;

/// The tag manager plug-in as its host sees it. All operations are called on the GUI thread.
class IVLTagManagerPlugin
{
public:
    /// [0] The root object, owned by the plug-in loader.
    virtual QObject* pluginObject() = 0;
    /// [1] A new window at every call, owned by \a parent, or by the caller without one. It shows the library that is
    /// set now and follows no later one. Null when the host deletes \a parent during the call.
    virtual IVLTagManagerWidget* createTagManagerWidget(QWidget* parent) = 0;
    /// [2] Shares ownership of the open library's provider; null is allowed and means that no library is open.
    virtual void setDataProvider(const QSharedPointer<ILibraryDataProvider>& provider) = 0;
    /// [3] Drops the provider and everything that was derived from it.
    virtual void clearDataProvider() = 0;
    /// [4] The palette stays owned by the host, which keeps it alive as long as the plug-in is used.
    virtual void setTagColorProvider(ITagColorProvider* provider) = 0;

protected:
    ~IVLTagManagerPlugin() = default;
};

Q_DECLARE_INTERFACE(IVLTagManagerPlugin, "Vellum.Plugin.IVLTagManagerPlugin/1.0")
