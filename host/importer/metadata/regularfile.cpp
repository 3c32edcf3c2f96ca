// SPDX-License-Identifier: MIT
#include "host/importer/metadata/regularfile.h"

#include <QByteArray>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

RegularFile RegularFile::open(const QByteArray& path)
{
    RegularFile file;
    struct stat status = {};
    // Looked at first, because opening is already an event for a pipe or a device; and again, because the name may lead
    // elsewhere by then.
    if (stat(path.constData(), &status) == 0 && S_ISREG(status.st_mode)) {
        file.descriptor = FileDescriptor(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
        if (file.descriptor.isValid() && fstat(file.descriptor.number(), &status) != 0)
            file.descriptor = {};
    }
    if (status.st_mode != 0 && !S_ISREG(status.st_mode)) {
        file.descriptor = {};
        file.error = tr("This is not a regular file");
    } else if (!file.descriptor.isValid()) {
        file.error = QString::fromLocal8Bit(strerror(errno));
    }
    file.size = status.st_size;
    file.modified = qint64(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    return file;
}
