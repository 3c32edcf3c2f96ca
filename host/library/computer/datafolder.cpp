// SPDX-License-Identifier: MIT
#include "host/library/computer/datafolder.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {

// Without it, QStandardPaths names a folder in the root folder.
bool hasHome()
{
    return qgetenv("XDG_DATA_HOME").startsWith('/') || qgetenv("HOME").startsWith('/');
}

}  // namespace

QByteArray personalDataFolder()
{
    if (!hasHome())
        return {};
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/vellum");
    if (!QDir().mkpath(folder))
        return {};
    QByteArray path = QFile::encodeName(folder);
    chmod(path.constData(), S_IRWXU);
    return path;
}
