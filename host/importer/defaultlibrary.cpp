// SPDX-License-Identifier: MIT
#include "host/importer/defaultlibrary.h"

#include "host/importer/folderwalk.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <sys/stat.h>

namespace {

// Bytes of the hash in a file name; enough that no two folders of a person share one.
constexpr int hashLength = 12;

}  // namespace

QByteArray defaultLibraryPath(const QByteArray& folder)
{
    const std::optional<QByteArray> canonical = canonicalFolder(folder);
    if (!canonical)
        return {};
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString directory = data + QStringLiteral("/vellum/libraries");
    QDir().mkpath(directory);
    const QByteArray path = QFile::encodeName(directory);
    chmod(path.constData(), S_IRWXU);
    const QByteArray hash = QCryptographicHash::hash(*canonical, QCryptographicHash::Sha256);
    return path + '/' + hash.left(hashLength).toHex() + ".vellum";
}
