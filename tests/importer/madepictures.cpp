// SPDX-License-Identifier: MIT
#include "tests/importer/madepictures.h"

#include <exiv2/exiv2.hpp>
#include <QtEndian>

namespace {

template <typename Number>
QByteArray big(Number number)
{
    QByteArray bytes(sizeof number, 0);
    qToBigEndian(number, bytes.data());
    return bytes;
}

template <typename Number>
QByteArray little(Number number)
{
    QByteArray bytes(sizeof number, 0);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

/// Zeros; a plain char would be taken for a number of bytes.
QByteArray zeros(int count)
{
    return {count, '\0'};
}

QByteArray xmpPacket()
{
    Exiv2::XmpData data;
    data["Xmp.dc.subject"] = "sea";
    std::string packet;
    Exiv2::XmpParser::encode(packet, data);
    return QByteArray::fromStdString(packet);
}

/// What the metadata library writes itself.
QByteArray created(int imageType)
{
    const auto image = Exiv2::ImageFactory::create(imageType);
    image->xmpData()["Xmp.dc.subject"] = "sea";
    image->writeMetadata();
    image->io().open();
    const Exiv2::DataBuf bytes = image->io().read(long(image->io().size()));
    // Exiv2 hands its bytes out as unsigned ones.
    return {reinterpret_cast<const char*>(bytes.pData_), int(bytes.size_)};  // NOLINT(*-reinterpret-cast)
}

/// TIFF 6.0 with one directory after \a extension; raw formats replace the \a mark.
QByteArray tiff(const QByteArray& mark = QByteArray("II*\0", 4), const QByteArray& extension = {})
{
    constexpr quint16 byteType = 1;
    constexpr quint16 xmpTag = 700;
    const QByteArray packet = xmpPacket();
    const int directory = 8 + extension.size();
    constexpr int directorySize = 2 + 12 + 4;
    return mark + little(quint32(directory)) + extension + little(quint16(1)) + little(xmpTag) + little(byteType) +
           little(quint32(packet.size())) + little(quint32(directory + directorySize)) + zeros(4) + packet;
}

QByteArray exifHeader()
{
    return {"Exif\0\0", 6};
}

/// A box of ISO/IEC 14496-12.
QByteArray box(const char* type, const QByteArray& content)
{
    return big(quint32(8 + content.size())) + type + content;
}

QByteArray fullBox(const char* type, quint8 version, const QByteArray& content)
{
    return box(type, char(version) + zeros(3) + content);
}

/// ISO/IEC 23008-12: two items, Exif and XMP, in the media data.
QByteArray heif(const QByteArray& brand)
{
    const QByteArray exif = big(quint32(6)) + exifHeader() + tiff();
    const QByteArray packet = xmpPacket();
    const QByteArray type = box("ftyp", brand + zeros(4) + "mif1" + brand);
    const auto place = [](quint16 id, int from, int size) -> QByteArray {
        return big(id) + zeros(2) + big(quint16(1)) + big(quint32(from)) + big(quint32(size));
    };
    const int exifAt = type.size() + 8;
    const QByteArray items =
        big(quint16(2)) + fullBox("infe", 2, big(quint16(1)) + zeros(2) + "Exif" + zeros(1)) +
        fullBox("infe", 2, big(quint16(2)) + zeros(2) + "mime" + zeros(1) + "application/rdf+xml" + zeros(1));
    const QByteArray places = QByteArray("\x44\x00", 2) + big(quint16(2)) + place(1, exifAt, exif.size()) +
                              place(2, exifAt + exif.size(), packet.size());
    const QByteArray properties = box("ipco", fullBox("ispe", 0, big(quint32(1)) + big(quint32(1))));
    return type + box("mdat", exif + packet) +
           fullBox("meta", 0,
                   fullBox("hdlr", 0, zeros(4) + "pict" + zeros(13)) + fullBox("pitm", 0, big(quint16(1))) +
                       fullBox("iinf", 0, items) + fullBox("iloc", 0, places) + box("iprp", properties));
}

QByteArray cr3()
{
    const QByteArray camera = QByteArray::fromHex("85c0b687820f11e08111f4ce462b6a48");
    const QByteArray xmp = QByteArray::fromHex("be7acfcb97a942e89c71999491e3afac");
    return box("ftyp", "crx " + big(quint32(1)) + "crx isom") +
           box("moov", box("uuid", camera + box("CMT1", tiff()) + box("CMT3", tiff()))) +
           box("uuid", xmp + xmpPacket()) + box("mdat", zeros(64));
}

QByteArray psd()
{
    const auto resource = [](quint16 id, const QByteArray& data) -> QByteArray {
        return "8BIM" + big(id) + zeros(2) + big(quint32(data.size())) + data + zeros(data.size() % 2);
    };
    const QByteArray iptc = QByteArray("\x1c\x02\x19\x00\x03sea", 8);
    const QByteArray resources = resource(0x0404, iptc) + resource(0x0424, xmpPacket());
    return "8BPS" + big(quint16(1)) + zeros(6) + big(quint16(3)) + big(quint32(1)) + big(quint32(1)) + big(quint16(8)) +
           big(quint16(3)) + zeros(4) + big(quint32(resources.size())) + resources + zeros(4);
}

QByteArray raf()
{
    const QByteArray preview = QByteArray("\xff\xd8\xff\xe1\x10\x00", 6) + exifHeader() + tiff();
    constexpr int headerSize = 160;
    QByteArray header = QByteArray("FUJIFILMCCD-RAW 0201FF000000TEST").leftJustified(84, '\0') +
                        big(quint32(headerSize)) + big(quint32(preview.size()));
    return header.leftJustified(headerSize, '\0') + preview;
}

}  // namespace

QVector<MadePicture> madePictures()
{
    const QByteArray panasonic = QByteArray::fromHex("88e774d8f8251d4d947a6e77822b5d6a");
    return {
        {"made.exv", created(Exiv2::ImageType::exv)},
        {"made.jp2", created(Exiv2::ImageType::jp2)},
        {"made.eps", created(Exiv2::ImageType::eps)},
        {"made.pgf", created(Exiv2::ImageType::pgf)},
        {"made.psd", psd()},
        {"made.dng", tiff()},
        {"made.nef", tiff(QByteArray("MM\0*", 4)), false},
        {"made.orf", tiff("IIRO")},
        {"made.rw2", tiff(QByteArray("IIU\0", 4), panasonic), false},
        {"made.cr2", tiff(QByteArray("II*\0", 4), QByteArray("CR\2\0\0\0\0\0", 8))},
        {"made.cr3", cr3()},
        {"made.heic", heif("heic")},
        {"made.avif", heif("avif")},
        {"made.raf", raf()},
        {"animation.jpg", "GIF89a" + little(quint16(1)) + little(quint16(1)) + zeros(3), false},
    };
}
