// SPDX-License-Identifier: MIT
#include "bench/library/libraryside.h"

bench::LibrarySide::~LibrarySide() = default;

QByteArray bench::importedPath(int file)
{
    return QByteArray::number(file) + ".jpg";
}

QByteArray bench::importedFolder()
{
    return "/imported";
}
