// SPDX-License-Identifier: MIT
#include "host/app/commands/picturefile.h"

#include "host/importer/metadata/regularfile.h"

#include <QFile>
#include <QMimeDatabase>

#include <algorithm>

namespace PictureFile {

QString pictureType(const QByteArray& path)
{
    const RegularFile regular = RegularFile::open(path);
    QFile file;
    if (!regular.descriptor.isValid() || !file.open(regular.descriptor.number(), QIODevice::ReadOnly))
        return {};
    const auto isPicture = [](const QMimeType& type) { return type.name().startsWith(QLatin1String("image/")); };
    const QMimeDatabase types;
    const QMimeType type = types.mimeTypeForData(&file);
    const QList<QMimeType> byName = types.mimeTypesForFileName(displayName(path));
    return isPicture(type) && std::all_of(byName.begin(), byName.end(), isPicture) ? type.name() : QString();
}

QString displayName(const QByteArray& path)
{
    return QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
}

}  // namespace PictureFile
