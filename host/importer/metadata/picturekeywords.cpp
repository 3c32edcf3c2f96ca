// SPDX-License-Identifier: MIT
#include "host/importer/metadata/picturekeywords.h"

#include "host/importer/metadata/iptctext.h"
#include "host/importer/metadata/keywordlist.h"
#include "host/importer/metadata/pictureformats.h"

#include <exiv2/exiv2.hpp>
#include <QByteArray>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

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

QStringList readWithExiv2(const QByteArray& path)
{
    // Opened as a file by us: a name alone could be taken for an address on the network.
    using Owner =
        Exiv2::BasicIo::AutoPtr;  // NOLINT(clang-diagnostic-deprecated-declarations): the library takes no other
    auto image = Exiv2::ImageFactory::open(Owner(new Exiv2::FileIo(path.toStdString())));
    if (!image.get() && PictureFormats::mayBeUnknown(path))
        return {};
    if (!image.get())
        throw Exiv2::Error(Exiv2::kerErrorMessage, "The contents are of no known picture format");
    image->readMetadata();
    KeywordList keywords;
    addXmpKeywords(image->xmpData(), keywords);
    // The IPTC data of a sidecar are what Exiv2 itself made of the XMP, with arrays as one text.
    if (image->imageType() != Exiv2::ImageType::xmp)
        addIptcKeywords(image->iptcData(), keywords);
    return keywords.keywords();
}

// An error of Exiv2 names the file again and is in the language of the person's locale.
QString readableFileError(const QByteArray& path)
{
    struct stat status = {};
    if (stat(path.constData(), &status) != 0)
        return QString::fromLocal8Bit(strerror(errno));
    if (!S_ISREG(status.st_mode))
        return QStringLiteral("This is no file");
    if (status.st_size == 0)
        return QStringLiteral("The file is empty");
    const int access = euidaccess(path.constData(), R_OK);
    return access != 0 ? QString::fromLocal8Bit(strerror(errno)) : QString();
}

}  // namespace

void setUpExiv2()
{
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::enableBMFF();
    Exiv2::XmpParser::initialize();
}

MetadataAnswer readKeywords(const QByteArray& path)
{
    MetadataAnswer answer;
    answer.error = readableFileError(path);
    if (!answer.error.isEmpty() || PictureFormats::hasOnlySidecars(path))
        return answer;
    try {
        answer.keywords = readWithExiv2(path);
    } catch (const std::bad_alloc&) {
        answer.error = QStringLiteral("Reading it takes too much memory");
    } catch (const std::exception& error) {
        answer.error = fromUtf8(error.what());
    } catch (...) {
        answer.error = QStringLiteral("Unknown error");
    }
    return answer;
}
