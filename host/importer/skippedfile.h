// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// A file or folder that an import left out.
struct SkippedFile
{
    QByteArray path;  ///< In the file system's bytes.
    QString reason;   ///< In words for the user.
};
