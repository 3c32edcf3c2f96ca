// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QPluginLoader>
#include <QString>
#include <QStringList>

class IVLTagManagerPlugin;

/// Loads and initializes the tag manager plug-in. GUI thread only.
///
/// The plug-in stays loaded when this object is destroyed: its windows and connections may outlive it.
class TagManagerLoader
{
    Q_DECLARE_TR_FUNCTIONS(TagManagerLoader)

public:
    /// Where the plug-in is looked for when the user names none, in this order: the build tree, then the place of the
    /// installation, both relative to the folder of the program, \a programDir.
    [[nodiscard]] static QStringList defaultFiles(const QString& programDir);

    /// Loads \a file, or the first of the default files that exists when it is empty. On failure false, and \a error
    /// says why in words for the user.
    bool load(const QString& file, QString* error);

    /// Null until load() has succeeded; owned by Qt's plug-in loader.
    [[nodiscard]] IVLTagManagerPlugin* tagManager() const { return m_tagManager; }

private:
    bool checkMetaData(const QString& file, QString* error) const;
    bool instantiate(QString* error);

    QPluginLoader m_loader;
    IVLTagManagerPlugin* m_tagManager = nullptr;
};
