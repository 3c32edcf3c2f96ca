// SPDX-License-Identifier: MIT
#include "host/app/picturefile.h"

#include "host/importer/metadata/regularfile.h"

#include <QFile>
#include <QMimeDatabase>

#include <algorithm>

namespace PictureFile {

bool isPicture(const QByteArray& path)
{
    const RegularFile regular = RegularFile::open(path);
    QFile file;
    const QMimeDatabase types;
    if (!regular.descriptor.isValid() || !file.open(regular.descriptor.number(), QIODevice::ReadOnly) ||
        !types.mimeTypeForData(&file).name().startsWith(QLatin1String("image/")))
        return false;
    const QList<QMimeType> byName = types.mimeTypesForFileName(displayName(path));
    return std::all_of(byName.begin(), byName.end(),
                       [](const QMimeType& type) { return type.name().startsWith(QLatin1String("image/")); });
}

QString displayName(const QByteArray& path)
{
    return QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
}

QUrl url(const QByteArray& path)
{
    return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"), QUrl::StrictMode);
}

}  // namespace PictureFile
