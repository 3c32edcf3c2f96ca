// SPDX-License-Identifier: MIT
#include "host/library/records/plainpath.h"

#include <filesystem>

QByteArray plainPath(const QByteArray& path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path.toStdString(), error);
    const std::filesystem::path plain = std::filesystem::weakly_canonical(absolute, error);
    QByteArray bytes = QByteArray::fromStdString(error ? absolute.string() : plain.string());
    while (bytes.size() > 1 && bytes.endsWith('/'))
        bytes.chop(1);
    return bytes;
}
