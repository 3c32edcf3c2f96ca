// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;

[[nodiscard]] bool isGif(const unsigned char* data, long size);
/// The XMP packet of a GIF file with these contents, from its application extension; empty without one.
[[nodiscard]] QByteArray gifXmpPacket(const unsigned char* data, long size);
