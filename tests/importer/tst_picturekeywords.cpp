// SPDX-License-Identifier: MIT
#include "host/importer/metadata/keywordlist.h"
#include "host/importer/metadata/picturekeywords.h"
#include "host/importer/metadata/regularfile.h"
#include "host/importer/metadata/takentext.h"
#include "tests/importer/taggedpicture.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

namespace {

QByteArray packet(const QByteArray& body, const QByteArray& attributes = {})
{
    return "<x:xmpmeta xmlns:x='adobe:ns:meta/'>"
           "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
           "<rdf:Description rdf:about='' xmlns:dc='http://purl.org/dc/elements/1.1/' " +
           attributes + ">" + body + "</rdf:Description></rdf:RDF></x:xmpmeta>";
}

MetadataAnswer read(const QByteArray& path)
{
    const RegularFile file = RegularFile::open(path);
    if (file.descriptor.isValid())
        return readKeywords(file.descriptor.number(), path.mid(path.lastIndexOf('/') + 1));
    MetadataAnswer answer;
    answer.error = file.error;
    return answer;
}

}  // namespace

class TestPictureKeywords : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { setUpExiv2(); }

    void joinsBothFields()
    {
        TaggedPicture picture;
        picture.xmp = QStringList{QStringLiteral("Sea"), QStringLiteral("Cafe\u0301"), QStringLiteral("sea")};
        picture.iptc = {"Sky", " Sea ", "Caf\xc3\xa9", "", "  "};
        picture.write(path("both.jpg"));
        const MetadataAnswer answer = read(path("both.jpg"));
        QCOMPARE(answer.error, QString());
        QCOMPARE(answer.keywords, (QStringList{QStringLiteral("Sea"), QStringLiteral("Cafe\u0301"),
                                               QStringLiteral("sea"), QStringLiteral("Sky")}));
    }

    void keepsNamesUnharmed()
    {
        for (const QString& name : {QStringLiteral("red, green, and blue,"), QStringLiteral("first\nsecond\tthird"),
                                    QStringLiteral("<b>&amp;</b> ]]> %s %1"), QStringLiteral("type=Bag hello"),
                                    QStringLiteral("charset=Ascii hello"), QStringLiteral("مرحبا \u202e abc"),
                                    QString(20000, QChar(0x5c71))}) {
            const QStringList expected = {name, QStringLiteral("other")};
            writePicture(path("name.jpg"), expected);
            QCOMPARE(read(path("name.jpg")).keywords, expected);
            writeSidecar(path("name.xmp"), expected);
            QCOMPARE(read(path("name.xmp")).keywords, expected);
            if (name.size() > 1000)  // An IPTC dataset holds 32 KiB.
                continue;
            TaggedPicture picture;
            picture.iptc = {name.toUtf8(), "other"};
            picture.write(path("name.jpg"));
            QCOMPARE(read(path("name.jpg")).keywords, expected);
        }
    }

    void readsUnusualXmp()
    {
        const auto keywordsOf = [this](const QByteArray& element, const QByteArray& attribute = {}) -> QString {
            const QByteArray body = element.isEmpty() ? QByteArray() : "<dc:subject>" + element + "</dc:subject>";
            writeFile(path("unusual.xmp"), packet(body, attribute));
            const MetadataAnswer answer = read(path("unusual.xmp"));
            return answer.error + answer.keywords.join(QLatin1Char('|'));
        };
        QCOMPARE(keywordsOf("<rdf:Seq><rdf:li>a, b</rdf:li><rdf:li>c</rdf:li></rdf:Seq>"), QStringLiteral("a, b|c"));
        QCOMPARE(keywordsOf("<rdf:Alt><rdf:li xml:lang='x-default'>Sea</rdf:li></rdf:Alt>"), QStringLiteral("Sea"));
        QCOMPARE(keywordsOf("a, b"), QStringLiteral("a, b"));
        QCOMPARE(keywordsOf({}, "dc:subject='Sea'"), QStringLiteral("Sea"));
        QCOMPARE(keywordsOf("<rdf:Bag/>"), QString());
        QCOMPARE(keywordsOf("<rdf:Bag><rdf:li/><rdf:li> </rdf:li></rdf:Bag>"), QString());
    }

    void honoursTheCharacterSet()
    {
        struct Case
        {
            const char* title;
            QByteArray characterSet;
            QByteArray bytes;
            QString text;
        };
        const QVector<Case> cases = {{"utf-8 declared", "\x1b%G", "\xe5\xb1\xb1", "山"},
                                     {"declared but not so", "\x1b%G", "caf\xe9", "café"},
                                     {"latin-1, though valid utf-8", "\x1b.A", "\xc3\xa9", "Ã©"},
                                     {"latin-1 in the right half", "\x1b-A", "\xe9t\xe9", "été"},
                                     {"cyrillic", "\x1b.L", "\xb3\xde\xe0\xeb", "Горы"},
                                     {"chinese", "\x1b$)A", "\xc9\xbd", "山"},
                                     {"unknown sequence", "\x1b%5", "\xe5\xb1\xb1", "山"},
                                     {"none, valid utf-8", "", "\xc3\xa9", "é"},
                                     {"none, not utf-8", "", "Se\xf1or", "Señor"},
                                     {"none, cut utf-8", "", "a\xc3", "aÃ"},
                                     {"windows quotes", "", "\x93hi\x94", "“hi”"}};
        for (const Case& each : cases) {
            TaggedPicture picture;
            picture.characterSet = each.characterSet;
            picture.iptc = {each.bytes};
            picture.write(path("iptc.jpg"));
            QVERIFY2(read(path("iptc.jpg")).keywords == QStringList{each.text}, each.title);
        }
    }

    void readsXmpThatBreaksTheRules()
    {
        const QByteArray sea = "<dc:subject><rdf:Bag><rdf:li>Sea</rdf:li></rdf:Bag></dc:subject>";
        struct Case
        {
            const char* title;
            QByteArray packet;
            QStringList keywords;
        };
        const QVector<Case> cases = {
            {"twice", packet(sea + "<dc:subject><rdf:Bag><rdf:li>Sky</rdf:li></rdf:Bag></dc:subject>"), {"Sea", "Sky"}},
            {"another property twice", packet("<dc:format>a</dc:format><dc:format>b</dc:format>" + sea), {"Sea"}},
            {"prefix not declared", packet("<made:up>1</made:up>" + sea), {"Sea"}},
            {"control character", packet(sea + "<dc:title>a\x01</dc:title>"), {"Sea"}},
            {"ampersand",
             packet("<dc:subject><rdf:Bag><rdf:li>R&D &amp; Sea</rdf:li></rdf:Bag></dc:subject>"),
             {"R&D & Sea"}},
            {"no text in UTF-8", packet(QByteArray(sea).replace("Sea", "caf\xe9")), {"café"}},
            {"cut off", packet(sea).left(packet(sea).size() - 40), {"Sea"}},
            {"twice as an attribute",
             packet(sea + "<dc:format>a</dc:format><dc:format>b</dc:format>", " dc:subject='Sky'"),
             {"Sky", "Sea"}}};
        for (const Case& each : cases) {
            writeFile(path("odd.xmp"), each.packet);
            QVERIFY2(read(path("odd.xmp")).keywords == each.keywords, each.title);
            // A JPEG of one segment, which is the packet.
            const QByteArray segment = QByteArray("http://ns.adobe.com/xap/1.0/\0", 29) + each.packet;
            const int length = segment.size() + 2;
            writeFile(path("odd.jpg"),
                      QByteArray("\xff\xd8\xff\xe1") + char(length >> 8) + char(length & 0xff) + segment + "\xff\xd9");
            QVERIFY2(read(path("odd.jpg")).keywords == each.keywords, each.title);
        }
        writeFile(path("hopeless.xmp"), packet("<dc:subject><rdf:Bag><<<"));
        QVERIFY(!read(path("hopeless.xmp")).error.isEmpty());

        QByteArray trailer("\x01", 1);
        for (int byte = 0xff; byte >= 0; --byte)
            trailer += char(byte);
        const QByteArray screen("GIF89a\1\0\1\0\x80\0\0\0\0\0\xff\xff\xff", 19);
        const QByteArray comment("\x21\xfe\x03"
                                 "abc\0",
                                 7);
        writeFile(path("drawn.gif"),
                  screen + comment + "\x21\xff\x0bXMP DataXMP" + packet(sea) + trailer + QByteArray("\0;", 2));
        QCOMPARE(read(path("drawn.gif")).keywords, QStringList{"Sea"});
        writeFile(path("cut.gif"), screen + "\x21\xff\x0bXMP DataXMP");
        QCOMPARE(read(path("cut.gif")).error, QString());
    }

    void tellsWhyAFileCannotBeRead()
    {
        writeFile(path("empty.jpg"), "");
        writeFile(path("text.jpg"), "this is no picture at all");
        writeFile(path("broken.xmp"), "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF>");
        for (const char* const name : {"empty.jpg", "text.jpg", "broken.xmp", "missing.jpg", ""})
            QVERIFY2(!read(path(name)).error.isEmpty(), name);
        writeFile(path("drawing.svg"), "<svg xmlns='http://www.w3.org/2000/svg'/>");
        writeFile(path("new.jxl"), QByteArray("\xff\x0a").leftJustified(300, '.'));
        for (const char* const name : {"drawing.svg", "new.jxl"}) {
            const MetadataAnswer answer = read(path(name));
            QVERIFY2(answer.error.isEmpty() && answer.keywords.isEmpty(), name);
        }
    }

    void timeOfTaking()
    {
        const qint64 expected = QDateTime(QDate(2024, 5, 17), QTime(10, 11, 12), Qt::UTC).toMSecsSinceEpoch();
        for (const char* const text : {"2024:05:17 10:11:12", "2024-05-17T10:11:12.34+02:00", " 2024:05:17 10:11:12\n"})
            QCOMPARE(takenTimeFrom(text).value_or(0), expected);
        QCOMPARE(takenTimeFrom("2024-05-17").value_or(0), expected - QTime(0, 0).msecsTo(QTime(10, 11, 12)));
        for (const char* const text : {"", "    :  :     :  :  ", "0000:00:00 00:00:00", "2024:13:01 10:00:00",
                                       "2024:05:17 25:00", "2024-05", "٢٠٢٤:05:17"})
            QVERIFY2(!takenTimeFrom(text), text);
        writeFile(path("time.xmp"), "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
                                    "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description "
                                    "xmlns:exif='http://ns.adobe.com/exif/1.0/' "
                                    "exif:DateTimeOriginal='2024-05-17T10:11:12'/></rdf:RDF></x:xmpmeta>");
        const MetadataAnswer answer = read(path("time.xmp"));
        QCOMPARE(answer.taken.value_or(0), expected);
        QCOMPARE(MetadataAnswer::fromLine(answer.toLine())->taken.value_or(0), expected);
        QVERIFY(!MetadataAnswer::fromLine("{\"keywords\":[],\"problem\":0,\"taken\":1e300}\n")->taken);
    }

    void agreesWithExiftool()
    {
        const QString exiftool = QStandardPaths::findExecutable(QStringLiteral("exiftool"));
        if (exiftool.isEmpty())
            QSKIP("exiftool is not installed");  // NOLINT(clang-diagnostic-gnu-zero-variadic-macro-arguments)
        QProcess process;
        process.start(exiftool, {QStringLiteral("-r"), QStringLiteral("-j"), QStringLiteral("-struct"),
                                 QStringLiteral("-XMP-dc:Subject"), QStringLiteral("-IPTC:Keywords"),
                                 QStringLiteral(VELLUM_SAMPLES)});
        QVERIFY(process.waitForFinished(60000));
        const QJsonArray files = QJsonDocument::fromJson(process.readAllStandardOutput()).array();
        QVERIFY(files.size() > 20);
        for (const QJsonValue& file : files) {
            KeywordList expected;
            for (const QLatin1String key : {QLatin1String("Subject"), QLatin1String("Keywords")}) {
                const QJsonValue value = file.toObject().value(key);
                const QJsonArray items = value.isArray() ? value.toArray() : QJsonArray{value};
                for (const auto& item : items)
                    expected.add(item.toVariant().toString());
            }
            const QString name = file.toObject().value(QLatin1String("SourceFile")).toString();
            const QStringList keywords = read(QFile::encodeName(name)).keywords;
            QVERIFY2(keywords == expected.keywords(),
                     qPrintable(name + QLatin1String(": ") + keywords.join(QLatin1Char('|'))));
        }
    }

private:
    [[nodiscard]] QByteArray path(const char* name) const { return QFile::encodeName(m_folder.path()) + '/' + name; }

    QTemporaryDir m_folder;
};

QTEST_APPLESS_MAIN(TestPictureKeywords)
#include "tst_picturekeywords.moc"
