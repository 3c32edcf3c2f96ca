// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSize>
#include <QTemporaryDir>

/// A folder of small pictures that is removed with this object. Names are the file system's bytes.
class PictureFolder
{
public:
    PictureFolder() = default;
    ~PictureFolder();
    Q_DISABLE_COPY(PictureFolder)

    [[nodiscard]] QByteArray path() const;
    [[nodiscard]] QByteArray path(const QByteArray& name) const { return path() + '/' + name; }

    /// Writes \a content to a new or existing file and returns its path.
    QByteArray write(const QByteArray& name, const QByteArray& content) const;
    /// A PNG of one colour.
    QByteArray writePng(const QByteArray& name, const QSize& size = QSize(40, 30)) const;

    /// A JPEG whose left half is red and whose right half is blue as stored, with that EXIF orientation, 1 to 8.
    [[nodiscard]] static QByteArray jpeg(const QSize& size, int orientation);
    /// A sidecar that carries these keywords, which need no escaping.
    [[nodiscard]] static QByteArray sidecar(const QList<QByteArray>& keywords);

private:
    QTemporaryDir m_folder;
};
