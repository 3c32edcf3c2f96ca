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
    /// The paths that are tried if the user names none, in order: the build tree, then the installation, both relative
    /// to \a programDir, the folder of the program.
    [[nodiscard]] static QStringList defaultFiles(const QString& programDir);

    /// Loads \a file, or the first of the default files that exists if it is empty. Returns false on failure, with the
    /// reason in words for the user in \a error.
    bool load(const QString& file, QString* error);

    /// Null until load() has succeeded; owned by Qt's plug-in loader.
    [[nodiscard]] IVLTagManagerPlugin* tagManager() const { return m_tagManager; }

private:
    bool checkMetaData(const QString& file, QString* error) const;
    bool instantiate(QString* error);

    QPluginLoader m_loader;
    IVLTagManagerPlugin* m_tagManager = nullptr;
};
