// SPDX-License-Identifier: MIT
#include "host/importer/metadata/thumbnailreader.h"

#include "host/importer/metadata/confinement.h"
#include "host/importer/metadata/imagecontent.h"
#include "host/importer/metadata/readermessage.h"
#include "host/importer/metadata/readerservice.h"
#include "host/importer/metadata/thumbnailpixels.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QSemaphore>
#include <QThreadPool>

namespace {

// Decoded at full size this takes half a gigabyte, which is the most that a thumbnail may cost for a moment.
constexpr qint64 maxPixels = 128'000'000;
// The side of the picture that is drawn to load fonts.
constexpr int fontSampleSide = 64;

// An image plug-in is loaded when a reader of its format is made.
void loadPlugins()
{
    for (const char* const format :
         {"jpeg", "png", "gif", "tiff", "webp", "bmp", "ico", "xpm", "ppm", "svg", "svgz", "tga", "xbm"}) {
        QBuffer nothing;
        nothing.open(QIODevice::ReadOnly);
        QImageReader reader(&nothing, format);
        reader.setAutoDetectImageFormat(false);
        (void)reader.canRead();
    }
}

// Fonts are opened when a text needs them, and stay open. Texts in drawings that ask for other ones are drawn with
// these.
void loadFonts()
{
    QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='64' height='64'>";
    for (const char* const family : {"sans-serif", "serif", "monospace"}) {
        for (const char* const look : {"", "font-weight='bold'", "font-style='italic'"})
            drawing += QByteArray("<text y='9' font-size='9' font-family='") + family + "' " + look + ">Aa</text>";
    }
    drawing +=
        "<text y='9' font-size='9'>\u042f\u03a9\u5c71\u3042\ud55c\u0634\u05d0\u0e01\u0905\u2192\u2713</text></svg>";
    QBuffer buffer(&drawing);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(QSize(fontSampleSide, fontSampleSide));
    (void)reader.read();
}

// Large images are scaled on the threads of this pool, and it cannot start any later.
void startPoolThread()
{
    QThreadPool* const pool = QThreadPool::globalInstance();
    pool->setMaxThreadCount(1);
    pool->setExpiryTimeout(-1);
    QSemaphore started;
    pool->start([&started] { started.release(); });
    started.acquire();
}

}  // namespace

QImage readThumbnail(int file, const QByteArray& name, int side)
{
    QFile device;
    if (!device.open(file, QIODevice::ReadOnly))
        return {};
    const QByteArray format = imagecontent::format(device.peek(imagecontent::headSize), name);
    if (format.isEmpty())
        return {};
    QImageReader reader(&device, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    // A drawing has no pixels before it is drawn.
    if (!format.startsWith("svg") && qint64(size.width()) * size.height() > maxPixels)
        return {};
    if (size.isValid() && (size.width() > side || size.height() > side))
        reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    QImage image = reader.read();
    // Formats that do not tell their size beforehand arrive here in full.
    if (image.width() > side || image.height() > side)
        return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return image;
}

int runThumbnailReader(int argc, char** argv)
{
    confinement::limit();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    const QGuiApplication application(argc, argv);
    loadPlugins();
    loadFonts();
    const auto handler = [](const ReaderRequest& request) {
        const int side = request.pixels;
        return thumbnailpixels::toBytes(readThumbnail(request.file.number(), request.name, side));
    };
    _exit(readerservice::serve(handler, startPoolThread));
}
