// SPDX-License-Identifier: MIT
#include "host/app/commands/picturefile.h"

#include <QMimeDatabase>

#include <algorithm>

namespace PictureFile {

QString pictureType(const QByteArray& path)
{
    const auto isPicture = [](const QMimeType& type) { return type.name().startsWith(QLatin1String("image/")); };
    const QMimeDatabase types;
    const QString name = displayName(path);
    const QList<QMimeType> possible = types.mimeTypesForFileName(name);
    if (possible.isEmpty() || !std::all_of(possible.begin(), possible.end(), isPicture))
        return {};
    return types.mimeTypeForFile(name, QMimeDatabase::MatchExtension).name();
}

QString displayName(const QByteArray& path)
{
    return QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
}

}  // namespace PictureFile
