// SPDX-License-Identifier: MIT
#include "tests/importer/taggedpicture.h"

#include <exiv2/exiv2.hpp>

#include <fstream>
#include <iterator>
#include <stdexcept>

void TaggedPicture::write(const QByteArray& path) const
{
    writeFile(path, fileBytes(VELLUM_SAMPLES "/" + base));
    const auto image = Exiv2::ImageFactory::open(path.toStdString());
    image->readMetadata();
    image->clearXmpData();
    image->clearIptcData();
    for (const QString& keyword : xmp)
        image->xmpData()["Xmp.dc.subject"] = keyword.toStdString();
    if (!characterSet.isEmpty())
        image->iptcData()["Iptc.Envelope.CharacterSet"] = characterSet.toStdString();
    for (const QByteArray& keyword : iptc) {
        Exiv2::StringValue value(keyword.toStdString());
        image->iptcData().add(Exiv2::IptcKey("Iptc.Application2.Keywords"), &value);
    }
    image->writeMetadata();
}

void writePicture(const QByteArray& path, const QStringList& keywords)
{
    TaggedPicture picture;
    picture.xmp = keywords;
    picture.write(path);
}

void writeSidecar(const QByteArray& path, const QStringList& keywords)
{
    Exiv2::XmpData data;
    for (const QString& keyword : keywords)
        data["Xmp.dc.subject"] = keyword.toStdString();
    std::string packet;
    if (Exiv2::XmpParser::encode(packet, data) != 0)
        throw std::runtime_error("XMP cannot be encoded");
    writeFile(path, QByteArray::fromStdString(packet));
}

QByteArray garbled(QByteArray bytes, bool atStart, QRandomGenerator& random)
{
    const int end = atStart ? qMin(bytes.size(), 600) : bytes.size();
    for (int flips = random.bounded(1, 9); flips > 0; --flips)
        bytes[random.bounded(end)] = random.bounded(4) ? char(random.bounded(256)) : char(0xff);
    return bytes;
}

void writeFile(const QByteArray& path, const QByteArray& bytes)
{
    std::ofstream file(path.constData(), std::ios::binary | std::ios::trunc);
    file.write(bytes.constData(), bytes.size());
    if (!file.flush())
        throw std::runtime_error("Cannot write " + path.toStdString());
}

QByteArray fileBytes(const QByteArray& path)
{
    std::ifstream file(path.constData(), std::ios::binary);
    if (!file)
        throw std::runtime_error("Cannot read " + path.toStdString());
    return QByteArray::fromStdString(std::string(std::istreambuf_iterator<char>(file), {}));
}
