// SPDX-License-Identifier: MIT
#include "host/app/outputfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

bool writeAll(int descriptor, const QByteArray& content)
{
    for (qint64 written = 0; written < content.size();) {
        const ssize_t count = write(descriptor, content.constData() + written, size_t(content.size() - written));
        if (count < 0 && errno != EINTR)
            return false;
        written += count > 0 ? count : 0;
    }
    return true;
}

bool writeInto(const QByteArray& path, const QByteArray& content)
{
    const int descriptor = open(path.constData(), O_WRONLY | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    fcntl(descriptor, F_SETFL, 0);
    const bool written = writeAll(descriptor, content);
    return close(descriptor) == 0 && written;
}

// The permissions that open() gives a new file.
mode_t usualPermissions()
{
    const mode_t mask = umask(0);
    umask(mask);
    return (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~mask;
}

bool replaceFile(const QByteArray& path, mode_t permissions, const QByteArray& content)
{
    QByteArray temporary = path + ".XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0)
        return false;
    bool done = writeAll(descriptor, content) && fchmod(descriptor, permissions) == 0;
    done = fsync(descriptor) == 0 && done;
    done = close(descriptor) == 0 && done && rename(temporary.constData(), path.constData()) == 0;
    const int reason = errno;
    if (!done)
        unlink(temporary.constData());
    errno = reason;
    return done;
}

QByteArray withoutLinks(const QByteArray& path)
{
    const std::unique_ptr<char, decltype(&free)> resolved(realpath(path.constData(), nullptr), &free);
    return resolved ? QByteArray(resolved.get()) : path;
}

}  // namespace

QString writeOutputFile(const QByteArray& path, const QByteArray& content)
{
    struct stat status = {};
    if (stat(path.constData(), &status) != 0)
        return replaceFile(path, usualPermissions(), content) ? QString() : qt_error_string(errno);
    const bool written = !S_ISREG(status.st_mode) ? writeInto(path, content)
                                                  : euidaccess(path.constData(), W_OK) == 0 &&
                                                        replaceFile(withoutLinks(path), status.st_mode & 0777, content);
    return written ? QString() : qt_error_string(errno);
}
