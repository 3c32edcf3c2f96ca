// SPDX-License-Identifier: MIT
#pragma once

#include "host/importer/metadata/metadataanswer.h"

class QByteArray;

/// Makes Exiv2 ready for readKeywords: no messages of its own, all formats that it knows. Called once, before other
/// threads use Exiv2.
void setUpExiv2();

/// Reads the keywords (XMP dc:subject, IPTC keywords) and the time of taking (Exif, XMP) of a picture or of an XMP
/// sidecar that is open for reading as \a file and has that \a name. Opens no other file. Never throws. A damaged file
/// may crash, hang or exhaust the process: for use in a reader process.
[[nodiscard]] MetadataAnswer readKeywords(int file, const QByteArray& name);
