// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRandomGenerator>
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
/// The bytes with up to eight of them changed: anywhere, or \a atStart where lengths and offsets are.
[[nodiscard]] QByteArray garbled(QByteArray bytes, bool atStart, QRandomGenerator& random);
/// Any file.
void writeFile(const QByteArray& path, const QByteArray& bytes);
[[nodiscard]] QByteArray fileBytes(const QByteArray& path);
