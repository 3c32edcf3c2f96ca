// SPDX-License-Identifier: MIT
#include "host/importer/metadata/picturekeywords.h"

#include "host/importer/metadata/gifxmp.h"
#include "host/importer/metadata/iptctext.h"
#include "host/importer/metadata/keywordlist.h"
#include "host/importer/metadata/mappedfile.h"
#include "host/importer/metadata/pictureformats.h"
#include "host/importer/metadata/takentext.h"
#include "host/importer/metadata/xmpsubjects.h"

#include <exiv2/exiv2.hpp>
#include <QByteArray>

namespace {

QString fromUtf8(const std::string& text)
{
    return QString::fromStdString(text);
}

// Exiv2 gives an array whose items carry qualifiers (a language, say) as one datum for each item: Xmp.dc.subject[1].
bool isItemOfSubject(const std::string& key)
{
    static const std::string subject = "Xmp.dc.subject[";
    return key.compare(0, subject.size(), subject) == 0 && key.find(']') == key.size() - 1;
}

void addXmpValue(const Exiv2::Value& value, KeywordList& keywords)
{
    if (const auto* languages = dynamic_cast<const Exiv2::LangAltValue*>(&value)) {
        for (const auto& alternative : languages->value_)
            keywords.add(fromUtf8(alternative.second));
    } else if (const auto* text = dynamic_cast<const Exiv2::XmpTextValue*>(&value)) {
        if (text->xmpArrayType() == Exiv2::XmpValue::xaNone && text->xmpStruct() == Exiv2::XmpValue::xsNone)
            keywords.add(fromUtf8(text->toString()));
    } else {
        // Item by item: the text of the whole array joins its items by commas.
        for (long item = 0; item < value.count(); ++item)
            keywords.add(fromUtf8(value.toString(item)));
    }
}

void addXmpKeywords(const Exiv2::XmpData& data, KeywordList& keywords)
{
    for (const Exiv2::Xmpdatum& datum : data) {
        const std::string key = datum.key();
        if (key == "Xmp.dc.subject" || isItemOfSubject(key))
            addXmpValue(datum.value(), keywords);
    }
}

QByteArray iptcBytes(const Exiv2::Iptcdatum& datum)
{
    QByteArray bytes = QByteArray::fromStdString(datum.toString());
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return bytes;
}

void addIptcKeywords(const Exiv2::IptcData& data, KeywordList& keywords)
{
    const auto characterSet = data.findKey(Exiv2::IptcKey("Iptc.Envelope.CharacterSet"));
    const QByteArray declared = characterSet != data.end() ? iptcBytes(*characterSet) : QByteArray();
    for (const Exiv2::Iptcdatum& datum : data) {
        if (datum.record() == Exiv2::IptcDataSets::application2 && datum.tag() == Exiv2::IptcDataSets::Keywords)
            keywords.add(decodeIptcText(iptcBytes(datum), declared));
    }
}

// Of a sidecar, Exiv2 makes Exif data from its XMP as far as it can.
std::optional<qint64> takenTimeOf(const Exiv2::Image& image)
{
    for (const char* const key : {"Exif.Photo.DateTimeOriginal", "Exif.Image.DateTimeOriginal"}) {
        const auto datum = image.exifData().findKey(Exiv2::ExifKey(key));
        if (datum != image.exifData().end()) {
            if (const std::optional<qint64> taken = takenTimeFrom(fromUtf8(datum->toString())))
                return taken;
        }
    }
    for (const char* const key : {"Xmp.exif.DateTimeOriginal", "Xmp.photoshop.DateCreated"}) {
        const auto datum = image.xmpData().findKey(Exiv2::XmpKey(key));
        if (datum != image.xmpData().end()) {
            if (const std::optional<qint64> taken = takenTimeFrom(fromUtf8(datum->toString())))
                return taken;
        }
    }
    return std::nullopt;
}

// The XMP of an image as it stands in the file.
QByteArray xmpPacket(const Exiv2::Image& image)
{
    if (!image.xmpPacket().empty())
        return QByteArray::fromStdString(image.xmpPacket());
    // Formats built on TIFF keep it as a field of the first directory.
    const auto field = image.exifData().findKey(Exiv2::ExifKey("Exif.Image.XMLPacket"));
    if (field == image.exifData().end())
        return {};
    QByteArray packet(int(field->size()), '\0');
    field->copy(reinterpret_cast<Exiv2::byte*>(packet.data()), Exiv2::invalidByteOrder);  // NOLINT(*-reinterpret-cast)
    return packet;
}

// Exiv2 drops all of an XMP packet that it finds a fault with.
void addXmpKeywords(const QByteArray& packet, KeywordList& keywords, MetadataAnswer& answer)
{
    Exiv2::XmpData data;
    if (packet.isEmpty() || Exiv2::XmpParser::decode(data, packet.toStdString()) == 0) {
        addXmpKeywords(data, keywords);
        return;
    }
    const XmpSubjects subjects = XmpSubjects::read(packet);
    keywords.add(subjects.keywords);
    if (!subjects.error.isEmpty() && keywords.keywords().isEmpty())
        answer.setProblem(MetadataAnswer::UnreadableXmp, subjects.error);
}

void readWithExiv2(const MappedFile& file, const QByteArray& name, KeywordList& keywords, MetadataAnswer& answer)
{
    using Owner =
        Exiv2::BasicIo::AutoPtr;  // NOLINT(clang-diagnostic-deprecated-declarations): the library takes no other
    auto image = Exiv2::ImageFactory::open(Owner(new Exiv2::MemIo(file.data(), file.size())));
    if (!image.get()) {
        if (!pictureformats::mayBeUnknown(name))
            answer.setProblem(MetadataAnswer::UnknownFormat);
        return;
    }
    image->readMetadata();
    answer.taken = takenTimeOf(*image);
    addXmpKeywords(image->xmpData(), keywords);
    // The IPTC data of a sidecar are what Exiv2 itself made of the XMP, with arrays as one text.
    if (image->imageType() != Exiv2::ImageType::xmp)
        addIptcKeywords(image->iptcData(), keywords);
    if (image->xmpData().empty())
        addXmpKeywords(xmpPacket(*image), keywords, answer);
}

}  // namespace

void setUpExiv2()
{
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::enableBMFF();
    Exiv2::XmpParser::initialize();
}

MetadataAnswer readKeywords(int file, const QByteArray& name)
{
    MetadataAnswer answer;
    const MappedFile contents(file);
    if (contents.size() == 0)
        answer.setProblem(MetadataAnswer::Empty);
    else if (!contents.data())
        answer.setProblem(MetadataAnswer::Unreadable);
    if (!contents.data() || pictureformats::hasOnlySidecars(name))
        return answer;
    try {
        KeywordList keywords;
        if (isGif(contents.data(), contents.size()))  // In which Exiv2 does not look for any.
            addXmpKeywords(gifXmpPacket(contents.data(), contents.size()), keywords, answer);
        else
            readWithExiv2(contents, name, keywords, answer);
        answer.keywords = keywords.keywords();
    } catch (const std::bad_alloc&) {
        answer.setProblem(MetadataAnswer::TooMuchMemory);
    } catch (const std::exception& error) {
        answer.setProblem(MetadataAnswer::DamagedStructure, fromUtf8(error.what()));
    } catch (...) {
        answer.setProblem(MetadataAnswer::DamagedStructure);
    }
    return answer;
}
