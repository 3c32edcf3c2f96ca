// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

class QByteArray;

/// The option by which a program is asked to be a process that makes thumbnails for its own window.
constexpr char thumbnailReaderOption[] = "--read-thumbnails";

/// Decodes the picture that is open for reading as \a file, has that \a name, and is of a format that
/// imagecontent::format() knows, so that it fits a square of \a side pixels. Never enlarges it; turns it upright as the
/// file says. Null for what is no picture or has more than 128 million pixels. Takes as long as decoding takes.
[[nodiscard]] QImage readThumbnail(int file, const QByteArray& name, int side);

/// A process that makes thumbnails: answers each request with thumbnailpixels (see readerservice). Makes an application
/// object without a display, so there is none before. Returns the exit status.
int runThumbnailReader(int argc, char** argv);
