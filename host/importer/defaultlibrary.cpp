// SPDX-License-Identifier: MIT
#include "host/importer/defaultlibrary.h"

#include "host/importer/folderwalk.h"
#include "host/library/computer/datafolder.h"

#include <QCryptographicHash>

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
    const QByteArray data = personalDataFolder();
    if (data.isEmpty())
        return {};
    const QByteArray path = data + "/libraries";
    mkdir(path.constData(), S_IRWXU);
    const QByteArray hash = QCryptographicHash::hash(*canonical, QCryptographicHash::Sha256);
    return path + '/' + hash.left(hashLength).toHex() + ".vellum";
}
