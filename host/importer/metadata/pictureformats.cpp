// SPDX-License-Identifier: MIT
#include "host/importer/metadata/pictureformats.h"

#include <QByteArray>
#include <QSet>

namespace {

QByteArray extension(const QByteArray& name)
{
    const int dot = name.lastIndexOf('.');
    return dot > name.lastIndexOf('/') + 1 ? name.mid(dot + 1).toLower() : QByteArray();
}

// The lists are our own: they follow what Exiv2 and other programs write keywords into, which no list of file types
// says, and a name must mean the same on every computer, whatever types are registered there.
const QSet<QByteArray>& formatsWithKeywords()
{
    static const QSet<QByteArray> formats = {
        "jpg",  "jpeg", "jpe",  "jfif", "png", "tif", "tiff", "webp", "psd", "eps", "pgf", "jp2", "jpf", "jpx", "heic",
        "heif", "hif",  "avif", "arw",  "cr2", "cr3", "crw",  "dng",  "erf", "exv", "iiq", "kdc", "mef", "mos", "mrw",
        "nef",  "nrw",  "orf",  "pef",  "raf", "rw2", "rwl",  "sr2",  "srf", "srw", "3fr", "fff", "dcr"};
    return formats;
}

// Some of the things that bear these names can be read.
const QSet<QByteArray>& formatsOfManyKinds()
{
    static const QSet<QByteArray> formats = {"psb", "ps", "j2k", "jxl", "raw", "gif"};
    return formats;
}

const QSet<QByteArray>& formatsWithSidecarsOnly()
{
    static const QSet<QByteArray> formats = {
        "svg", "svgz", "bmp", "dib", "ico", "tga", "ppm", "pgm", "pbm",  "pnm",    "pcx", "xpm", "xbm",     "hdr",
        "exr", "xcf",  "kra", "ora", "ai",  "pdf", "cdr", "x3f", "indd", "sketch", "fig", "xd",  "afphoto", "afdesign"};
    return formats;
}

}  // namespace

bool pictureformats::isPicture(const QByteArray& name)
{
    return formatsWithKeywords().contains(extension(name)) || hasOnlySidecars(name) || mayBeUnknown(name);
}

bool pictureformats::mayBeUnknown(const QByteArray& name)
{
    return formatsOfManyKinds().contains(extension(name));
}

bool pictureformats::hasOnlySidecars(const QByteArray& name)
{
    return formatsWithSidecarsOnly().contains(extension(name));
}

bool pictureformats::isSidecar(const QByteArray& name)
{
    return extension(name) == "xmp";
}
