// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/ownerfile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

int createForOwner(const QString& path)
{
    const int file =
        ::open(QFile::encodeName(path).constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return errno;
    ::close(file);
    return 0;
}
