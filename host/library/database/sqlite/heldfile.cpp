// SPDX-License-Identifier: MIT
#include "host/library/database/sqlite/heldfile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <mutex>
#include <vector>

namespace {

using Identity = std::pair<dev_t, ino_t>;

struct Held
{
    std::vector<int> descriptors;
    int holders = 0;
};

struct Registry
{
    std::mutex mutex;
    std::map<Identity, Held> files;
};

Registry& registry()
{
    static Registry registry;
    return registry;
}

Identity identityOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino};
}

}  // namespace

HeldFile::HeldFile(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    struct stat status = {};
    auto held = ::stat(name.constData(), &status) == 0 ? all.files.find(identityOf(status)) : all.files.end();
    if (held == all.files.end()) {
        // A named pipe must not be waited for.
        const int descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
            m_error = qt_error_string(errno);
            return;
        }
        // It may be another file than a moment ago, and one that is held already.
        held = all.files.try_emplace(identityOf(status)).first;
        held->second.descriptors.push_back(descriptor);
    }
    ++held->second.holders;
    m_identity = held->first;
    m_descriptor = held->second.descriptors.front();
}

HeldFile::~HeldFile()
{
    if (!isOpen())
        return;
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto held = all.files.find(m_identity);
    if (--held->second.holders > 0)
        return;
    for (const int descriptor : held->second.descriptors)
        ::close(descriptor);
    all.files.erase(held);
}

bool HeldFile::isAt(const QString& path) const
{
    struct stat status = {};
    return isOpen() && ::stat(QFile::encodeName(path).constData(), &status) == 0 && identityOf(status) == m_identity;
}

HeldFile::Stamp HeldFile::stamp() const
{
    struct stat status = {};
    if (!isOpen() || ::fstat(m_descriptor, &status) != 0)
        return {};
    return {status.st_size, status.st_ctim.tv_sec * qint64(1'000'000'000) + status.st_ctim.tv_nsec};
}

QByteArray HeldFile::head(int size) const
{
    QByteArray bytes(size, Qt::Uninitialized);
    const ssize_t count = ::pread(m_descriptor, bytes.data(), static_cast<size_t>(size), 0);
    bytes.truncate(count > 0 ? static_cast<int>(count) : 0);
    return bytes;
}
