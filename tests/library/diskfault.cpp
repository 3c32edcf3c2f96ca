// SPDX-License-Identifier: MIT
#include "tests/library/diskfault.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>

// SQLite's file system layer for Unix lets its system calls be replaced by name:
// https://www.sqlite.org/c3ref/vfs.html, xSetSystemCall.
namespace {

std::atomic<DiskFault::Kind> kind = DiskFault::Kind::None;
std::atomic<qint64> callsLeft = 0;
std::atomic<bool> hasStruck = false;
std::atomic<off_t> shortReadEnd = -1;

bool strikes(DiskFault::Kind wanted)
{
    if (kind != wanted || callsLeft-- > 0)
        return false;
    hasStruck = true;
    return true;
}

ssize_t failWith(int error)
{
    errno = error;
    return -1;
}

ssize_t writeAt(int file, const void* data, size_t size, off_t offset)
{
    if (strikes(DiskFault::Kind::Kill))
        std::raise(SIGKILL);
    if (strikes(DiskFault::Kind::Full))
        return failWith(ENOSPC);
    if (strikes(DiskFault::Kind::WriteError))
        return failWith(EIO);
    if (strikes(DiskFault::Kind::LostWrite))
        return ssize_t(size);
    if (size > 1 && strikes(DiskFault::Kind::ShortWrite)) {
        kind = DiskFault::Kind::Full;
        return ::pwrite(file, data, size / 2, offset);
    }
    return ::pwrite(file, data, size, offset);
}

ssize_t readAt(int file, void* data, size_t size, off_t offset)
{
    if (strikes(DiskFault::Kind::ReadError))
        return failWith(EIO);
    if (!strikes(DiskFault::Kind::ShortRead))
        return ::pread(file, data, size, offset);
    // SQLite asks for the rest again.
    if (shortReadEnd.exchange(-1) == offset)
        return 0;
    shortReadEnd = offset + off_t(size / 2);
    return ::pread(file, data, size / 2, offset);
}

int openFile(const char* path, int flags, int mode)
{
    const bool writes = (flags & O_ACCMODE) == O_RDWR;
    const bool isMainFile = std::strstr(path, "-wal") == nullptr && std::strstr(path, "-shm") == nullptr;
    if (writes && (strikes(DiskFault::Kind::ReadOnlyFolder) || (isMainFile && strikes(DiskFault::Kind::ReadOnly))))
        return static_cast<int>(failWith(EACCES));
    return ::open(path, flags, mode);
}

void replace(const char* name, void (*function)())
{
    sqlite3_vfs* unixFiles = sqlite3_vfs_find("unix");
    unixFiles->xSetSystemCall(unixFiles, name, function);
}

template <typename Function>
void (*plain(Function* function))()
{
    // The form in which SQLite keeps its table of system calls.
    return reinterpret_cast<void (*)()>(function);  // NOLINT(*-reinterpret-cast)
}

}  // namespace

DiskFault::DiskFault()
{
    sqlite3_initialize();
    // Which of each pair is called depends on how SQLite was built.
    for (const char* name : {"pwrite", "pwrite64"})
        replace(name, plain(writeAt));
    for (const char* name : {"pread", "pread64"})
        replace(name, plain(readAt));
    replace("open", plain(openFile));
}

DiskFault::~DiskFault()
{
    clear();
    for (const char* name : {"pwrite", "pwrite64", "pread", "pread64", "open"})
        replace(name, nullptr);
}

void DiskFault::set(Kind newKind, qint64 after)
{
    kind = Kind::None;
    callsLeft = after;
    hasStruck = false;
    kind = newKind;
}

bool DiskFault::struck() const
{
    return hasStruck;
}
