// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <QByteArray>
#include <QVector>

/// A sidecar of a picture.
struct FoundSidecar
{
    QByteArray path;           ///< Absolute.
    QByteArray stamp;          ///< Changes with the sidecar's name, size and modification time.
    qint64 statusChanged = 0;  ///< As FoundPicture::statusChanged.

    /// As FoundPicture::trialStamp().
    [[nodiscard]] QByteArray trialStamp() const;
};

/// A picture that a walk over a folder met.
struct FoundPicture
{
    QByteArray path;                 ///< Absolute.
    qint64 size = 0;                 ///< Bytes.
    qint64 modified = 0;             ///< Nanoseconds since 1970-01-01 UTC.
    qint64 statusChanged = 0;        ///< Permissions, say; nanoseconds since 1970-01-01 UTC.
    QVector<FoundSidecar> sidecars;  ///< name.ext.xmp before name.xmp.

    /// What the library keeps of the picture and all its sidecars; the content is not known yet.
    [[nodiscard]] FileState state() const;
    /// Changes whenever a file that could not be read is worth another try.
    [[nodiscard]] QByteArray trialStamp() const;
};
