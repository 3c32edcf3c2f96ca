// SPDX-License-Identifier: MIT
#include "host/app/tagmanagerloader.h"

#include <iplugin.h>
#include <ivltagmanagerplugin.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

const QLatin1String pluginKey("plg_vltagmanagerplugin");
const QLatin1String pluginFile("plg_vltagmanagerplugin.so");

}  // namespace

QStringList TagManagerLoader::defaultFiles(const QString& programDir)
{
    return {programDir + QLatin1String("/../plugins/") + pluginFile,
            programDir + QLatin1String("/" VELLUM_PLUGIN_DIR "/") + pluginFile};
}

bool TagManagerLoader::load(const QString& file, QString* error)
{
    QString chosen = file;
    if (file.isEmpty()) {
        const QStringList candidates = defaultFiles(QCoreApplication::applicationDirPath());
        for (const QString& candidate : candidates) {
            if (chosen.isEmpty() && QFileInfo::exists(candidate))
                chosen = candidate;
        }
        if (chosen.isEmpty()) {
            *error =
                tr("The tag manager plug-in was not found. Looked for: %1").arg(candidates.join(QLatin1String(", ")));
            return false;
        }
    }
    // QPluginLoader searches Qt's own plug-in folders for a relative name.
    m_loader.setFileName(QFileInfo(chosen).absoluteFilePath());
    return checkMetaData(chosen, error) && instantiate(error);
}

bool TagManagerLoader::checkMetaData(const QString& file, QString* error) const
{
    const QJsonObject metaData = m_loader.metaData();
    if (metaData.isEmpty()) {
        *error = tr("%1 is not a plug-in: %2").arg(file, m_loader.errorString());
        return false;
    }
    const QString iid = metaData.value(QLatin1String("IID")).toString();
    const QJsonArray keys = metaData.value(QLatin1String("MetaData")).toObject().value(QLatin1String("Keys")).toArray();
    if (iid != QLatin1String(qobject_interface_iid<IVLTagManagerPlugin*>()) || !keys.contains(QString(pluginKey))) {
        *error = tr("%1 is not a tag manager plug-in, it is made for %2").arg(file, iid);
        return false;
    }
    return true;
}

bool TagManagerLoader::instantiate(QString* error)
{
    QObject* root = m_loader.instance();
    if (!root) {
        *error = tr("The tag manager plug-in cannot be loaded: %1").arg(m_loader.errorString());
        return false;
    }
    auto* plugin = qobject_cast<IPlugin*>(root);
    auto* tagManager = qobject_cast<IVLTagManagerPlugin*>(root);
    if (!plugin || !tagManager || !plugin->initialize()) {
        *error = tr("The plug-in does not offer what a tag manager has to: %1").arg(m_loader.fileName());
        return false;
    }
    m_tagManager = tagManager;
    return true;
}
