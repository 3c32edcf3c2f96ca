// SPDX-License-Identifier: MIT
#include "host/app/picturefile.h"

#include <QFile>
#include <QMimeDatabase>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace PictureFile {

bool open(const QByteArray& path, QFile* file, Stamp* stamp)
{
    // QFile would take the path through QString and lose bytes that are no text. Not blocking, for a pipe without a
    // writer.
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        !file->open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    stamp->modified = static_cast<qint64>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    stamp->size = status.st_size;
    return true;
}

bool isPicture(const QByteArray& path)
{
    QFile file;
    Stamp stamp;
    const QMimeDatabase types;
    if (!open(path, &file, &stamp) || !types.mimeTypeForData(&file).name().startsWith(QLatin1String("image/")))
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
