// SPDX-License-Identifier: MIT
#pragma once

#include "tests/importer/taggedpicture.h"
#include "tests/importer/testfolder.h"

#include <QSize>

/// A folder of small pictures that is removed with this object. Names are the file system's bytes.
class PictureFolder : public TestFolder
{
public:
    using TestFolder::path;
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return file(name); }

    /// Writes \a content to a new or existing file and returns its path.
    QByteArray write(const QByteArray& name, const QByteArray& content) const;
    /// A PNG of one colour.
    QByteArray writePng(const QByteArray& name, const QSize& size = QSize(40, 30)) const;

    /// A JPEG whose left half is red and whose right half is blue as stored, with that EXIF orientation, 1 to 8.
    [[nodiscard]] static QByteArray jpeg(const QSize& size, int orientation);
};
