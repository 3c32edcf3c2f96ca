// SPDX-License-Identifier: MIT
#include "host/importer/keywordlist.h"
#include "host/importer/picturekeywords.h"
#include "tests/importer/taggedpicture.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

class TestPictureKeywords : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { setUpExiv2(); }
    void joinsBothFields();
    void keepsNamesUnharmed_data();
    void keepsNamesUnharmed();
    void readsUnusualXmp_data();
    void readsUnusualXmp();
    void honoursTheCharacterSet();
    void readsEveryFormatOfTheSamples_data();
    void readsEveryFormatOfTheSamples();
    void tellsWhyAFileCannotBeRead();
    void answerSurvivesThePipe();
    void agreesWithExiftool();

private:
    [[nodiscard]] QByteArray path(const char* name) const { return QFile::encodeName(m_folder.path()) + '/' + name; }

    QTemporaryDir m_folder;
};

void TestPictureKeywords::joinsBothFields()
{
    TaggedPicture picture;
    picture.xmp = QStringList{QStringLiteral("Sea"), QStringLiteral("Cafe\u0301"), QStringLiteral("sea")};
    picture.iptc = {"Sky", " Sea ", "Caf\xc3\xa9", "", "  "};
    picture.write(path("both.jpg"));
    const MetadataAnswer answer = readKeywords(path("both.jpg"));
    QCOMPARE(answer.error, QString());
    QCOMPARE(answer.keywords, (QStringList{QStringLiteral("Sea"), QStringLiteral("Cafe\u0301"), QStringLiteral("sea"),
                                           QStringLiteral("Sky")}));
}

void TestPictureKeywords::keepsNamesUnharmed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("commas") << QStringLiteral("red, green, and blue,");
    QTest::newRow("quotes") << QStringLiteral("\"quoted\" 'and' `so`");
    QTest::newRow("line feeds") << QStringLiteral("first\nsecond\tthird");
    QTest::newRow("markup") << QStringLiteral("<b>&amp;</b> ]]> %s %1");
    QTest::newRow("type prefix") << QStringLiteral("type=Bag hello");
    QTest::newRow("language prefix") << QStringLiteral("lang=\"x-default\" hello");
    QTest::newRow("charset prefix") << QStringLiteral("charset=Ascii hello");
    QTest::newRow("emoji") << QStringLiteral("👩‍👩‍👧 family ❤️");
    QTest::newRow("right to left") << QStringLiteral("مرحبا \u202e abc");
    QTest::newRow("long") << QString(20000, QChar(0x5c71));
}

void TestPictureKeywords::keepsNamesUnharmed()
{
    QFETCH(QString, name);
    const QStringList expected = {name, QStringLiteral("other")};
    writePicture(path("name.jpg"), expected);
    QCOMPARE(readKeywords(path("name.jpg")).keywords, expected);
    writeSidecar(path("name.xmp"), expected);
    QCOMPARE(readKeywords(path("name.xmp")).keywords, expected);
    if (name.size() > 1000)  // An IPTC dataset holds 32 KiB.
        return;
    TaggedPicture picture;
    picture.iptc = {name.toUtf8(), "other"};
    picture.write(path("name.jpg"));
    QCOMPARE(readKeywords(path("name.jpg")).keywords, expected);
}

void TestPictureKeywords::readsUnusualXmp_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QByteArray>("element");
    QTest::addColumn<QStringList>("keywords");
    const QStringList ab = {QStringLiteral("a, b"), QStringLiteral("c")};
    QTest::newRow("sequence") << QByteArray()
                              << QByteArray("<rdf:Seq><rdf:li>a, b</rdf:li><rdf:li>c</rdf:li></rdf:Seq>") << ab;
    QTest::newRow("items with a language")
        << QByteArray() << QByteArray("<rdf:Bag><rdf:li xml:lang='en'>a, b</rdf:li><rdf:li>c</rdf:li></rdf:Bag>") << ab;
    QTest::newRow("languages of one text")
        << QByteArray() << QByteArray("<rdf:Alt><rdf:li xml:lang='x-default'>Sea</rdf:li></rdf:Alt>")
        << QStringList{QStringLiteral("Sea")};
    QTest::newRow("one text") << QByteArray() << QByteArray("a, b") << QStringList{QStringLiteral("a, b")};
    QTest::newRow("attribute") << QByteArray("dc:subject='Sea'") << QByteArray() << QStringList{QStringLiteral("Sea")};
    QTest::newRow("empty bag") << QByteArray() << QByteArray("<rdf:Bag/>") << QStringList();
    QTest::newRow("empty items") << QByteArray() << QByteArray("<rdf:Bag><rdf:li/><rdf:li> </rdf:li></rdf:Bag>")
                                 << QStringList();
}

void TestPictureKeywords::readsUnusualXmp()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QByteArray, element);
    QFETCH(QStringList, keywords);
    const QByteArray body = element.isEmpty() ? QByteArray() : "<dc:subject>" + element + "</dc:subject>";
    writeFile(path("unusual.xmp"),
              "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
              "<rdf:Description rdf:about='' xmlns:dc='http://purl.org/dc/elements/1.1/' " +
                  attribute + '>' + body + "</rdf:Description></rdf:RDF></x:xmpmeta>");
    const MetadataAnswer answer = readKeywords(path("unusual.xmp"));
    QCOMPARE(answer.error, QString());
    QCOMPARE(answer.keywords, keywords);
}

void TestPictureKeywords::honoursTheCharacterSet()
{
    TaggedPicture picture;
    picture.characterSet = "\x1b.A";
    picture.iptc = {"\xc3\xa9"};
    picture.write(path("latin.jpg"));
    QCOMPARE(readKeywords(path("latin.jpg")).keywords, QStringList{QStringLiteral("Ã©")});
    picture.characterSet.clear();
    picture.iptc = {"\xc3\xa9", "Se\xf1or"};
    picture.write(path("undeclared.jpg"));
    QCOMPARE(readKeywords(path("undeclared.jpg")).keywords,
             (QStringList{QStringLiteral("é"), QStringLiteral("Señor")}));
}

void TestPictureKeywords::readsEveryFormatOfTheSamples_data()
{
    QTest::addColumn<QByteArray>("sample");
    QTest::addColumn<QString>("keyword");
    QTest::newRow("jpeg") << QByteArray("Landscapes/Autumn forest.jpg") << QStringLiteral("가을");
    QTest::newRow("jpeg, latin-1") << QByteArray("Travel/Postcard from Malmö.jpg") << QStringLiteral("Øresund");
    QTest::newRow("png") << QByteArray("Design/Quarter circles.png") << QStringLiteral("3D? No, flat");
    QTest::newRow("tiff, xmp") << QByteArray("Design/Fans.tif") << QStringLiteral("デザイン");
    QTest::newRow("tiff, iptc") << QByteArray("Design/Rings.tif") << QStringLiteral("抽象");
    QTest::newRow("webp") << QByteArray("Everyday/Shoal.webp") << QStringLiteral("动物");
    QTest::newRow("sidecar") << QByteArray("Design/Poster R.xmp") << QStringLiteral("تصميم");
}

void TestPictureKeywords::readsEveryFormatOfTheSamples()
{
    QFETCH(QByteArray, sample);
    QFETCH(QString, keyword);
    const MetadataAnswer answer = readKeywords(VELLUM_SAMPLES "/" + sample);
    QCOMPARE(answer.error, QString());
    QVERIFY2(answer.keywords.contains(keyword), qPrintable(answer.keywords.join(QLatin1Char('|'))));
}

void TestPictureKeywords::tellsWhyAFileCannotBeRead()
{
    writeFile(path("empty.jpg"), "");
    writeFile(path("text.jpg"), "this is no picture at all");
    writeFile(path("broken.xmp"), "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF>");
    for (const char* const name : {"empty.jpg", "text.jpg", "broken.xmp", "missing.jpg", ""})
        QVERIFY2(!readKeywords(path(name)).error.isEmpty(), name);
    writeFile(path("drawing.svg"), "<svg xmlns='http://www.w3.org/2000/svg'/>");
    writeFile(path("new.jxl"), QByteArray("\xff\x0a").leftJustified(300, '.'));
    for (const char* const name : {"drawing.svg", "new.jxl"}) {
        const MetadataAnswer answer = readKeywords(path(name));
        QVERIFY2(answer.error.isEmpty() && answer.keywords.isEmpty(), name);
    }
}

void TestPictureKeywords::answerSurvivesThePipe()
{
    MetadataAnswer answer;
    answer.keywords =
        QStringList{QStringLiteral("a\n\"b\"\\"), QString(QChar(0)) + QLatin1Char('x'), QStringLiteral("山👍")};
    answer.error = QStringLiteral("why, \n oh");
    QCOMPARE(answer.toLine().count('\n'), 1);
    const std::optional<MetadataAnswer> read = MetadataAnswer::fromLine(answer.toLine());
    QVERIFY(read.has_value());
    QCOMPARE(read->keywords, answer.keywords);
    QCOMPARE(read->error, answer.error);
    for (const char* const line :
         {"", "\n", "{}\n", "[]\n", "{\"keywords\":[]}\n", "{\"keywords\":3,\"error\":\"\"}\n", "\xff\n"})
        QVERIFY2(!MetadataAnswer::fromLine(line), line);
}

void TestPictureKeywords::agreesWithExiftool()
{
    const QString exiftool = QStandardPaths::findExecutable(QStringLiteral("exiftool"));
    if (exiftool.isEmpty())
        QSKIP("exiftool is not installed");
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
            for (const QJsonValue& item : value.isArray() ? value.toArray() : QJsonArray{value})
                expected.add(item.toVariant().toString());
        }
        const QString name = file.toObject().value(QLatin1String("SourceFile")).toString();
        const QStringList keywords = readKeywords(QFile::encodeName(name)).keywords;
        QVERIFY2(keywords == expected.keywords(),
                 qPrintable(name + QLatin1String(": ") + keywords.join(QLatin1Char('|'))));
    }
}

QTEST_APPLESS_MAIN(TestPictureKeywords)
#include "tst_picturekeywords.moc"
