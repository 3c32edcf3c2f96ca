// SPDX-License-Identifier: MIT
#include "bench/library/picturebuilder.h"

#include "bench/library/librarycontent.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QtEndian>

namespace {

constexpr int filesInFolder = 1000;
constexpr QSize pictureSize(320, 240);
constexpr int startLength = 2;  // bytes before the first segment of a JPEG

QByteArray plainJpeg()
{
    QImage image(pictureSize, QImage::Format_RGB32);
    QLinearGradient gradient(QPointF(), QPointF(pictureSize.width(), pictureSize.height()));
    gradient.setColorAt(0, QColor(36, 88, 184));
    gradient.setColorAt(1, QColor(154, 74, 0));
    QPainter(&image).fillRect(image.rect(), gradient);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "jpg");
    return buffer.data();
}

/// The segment of a JPEG that holds XMP.
QByteArray xmpSegment(const QVector<QString>& keywords)
{
    QString items;
    for (const QString& keyword : keywords)
        items += QStringLiteral("<rdf:li>%1</rdf:li>").arg(keyword.toHtmlEscaped());
    const QString packet =
        QStringLiteral("<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF"
                       " xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about=''"
                       " xmlns:dc='http://purl.org/dc/elements/1.1/'><dc:subject><rdf:Bag>%1</rdf:Bag></dc:subject>"
                       "</rdf:Description></rdf:RDF></x:xmpmeta>")
            .arg(items);
    QByteArray body = QByteArrayLiteral("http://ns.adobe.com/xap/1.0/");
    body.append('\0').append(packet.toUtf8());
    QByteArray head("\xff\xe1\0\0", 4);
    qToBigEndian(static_cast<quint16>(body.size() + 2), head.data() + 2);
    return head + body;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

}  // namespace

bool bench::buildPictures(const QString& path, const LibraryContent& content)
{
    const QByteArray plain = plainJpeg();
    const QDir folder(path);
    for (int i = 0; i < content.importedFiles(); ++i) {
        const QString below = QString::number(i / filesInFolder);
        if (i % filesInFolder == 0 && !folder.mkpath(below))
            return false;
        const QByteArray bytes = plain.left(startLength) + xmpSegment(content.keywords(i)) + plain.mid(startLength);
        if (!writeFile(folder.filePath(QStringLiteral("%1/%2.jpg").arg(below).arg(i)), bytes))
            return false;
    }
    return true;
}
