// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/metadata/filedescriptor.h"

#include <QCoreApplication>
#include <QString>

class QByteArray;

/// A regular file that is open for reading, and its state when it was opened.
struct RegularFile
{
    Q_DECLARE_TR_FUNCTIONS(RegularFile)

public:
    FileDescriptor descriptor;  ///< Not valid when the file could not be opened.
    qint64 size = 0;            ///< Bytes.
    qint64 modified = 0;        ///< Nanoseconds since 1970-01-01 UTC.
    QString error;              ///< Why it could not be opened.

    /// Opens \a path (the file system's bytes; links are followed). Pipes, devices, sockets and folders are refused
    /// without being opened. May block on a slow disk.
    [[nodiscard]] static RegularFile open(const QByteArray& path);
};
