// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

/// Writes small pictures and sidecars with keywords for tests. Every function fails the running test by an exception
/// when the file cannot be written.
struct TaggedPicture
{
    /// One of the project's samples; its own keywords are removed.
    QByteArray base = "Travel/Held sideways.jpg";
    QStringList xmp;
    QList<QByteArray> iptc;
    QByteArray characterSet;  ///< Of the IPTC keywords, as declared; none when empty.

    void write(const QByteArray& path) const;
};

/// A JPEG with these XMP keywords.
void writePicture(const QByteArray& path, const QStringList& keywords);
/// An XMP sidecar with these keywords.
void writeSidecar(const QByteArray& path, const QStringList& keywords);
/// Any file.
void writeFile(const QByteArray& path, const QByteArray& bytes);
[[nodiscard]] QByteArray fileBytes(const QByteArray& path);
