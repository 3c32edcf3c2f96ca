// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;

/// What an import knows about a file's format from its name alone (the bytes of a name or of a path).
namespace pictureformats {

/// A picture or a design file, by its extension in any case.
[[nodiscard]] bool isPicture(const QByteArray& name);
/// A picture or a design file of a format into which no program writes keywords that Exiv2 reads: only its sidecars
/// count.
[[nodiscard]] bool hasOnlySidecars(const QByteArray& name);
/// A picture that is whole and fine even if Exiv2 does not know what it holds.
[[nodiscard]] bool mayBeUnknown(const QByteArray& name);
/// A sidecar that holds XMP for a file beside it.
[[nodiscard]] bool isSidecar(const QByteArray& name);

}  // namespace pictureformats
