// SPDX-License-Identifier: MIT
#include "host/importer/metadata/keywordlist.h"
#include "host/importer/metadata/picturekeywords.h"
#include "tests/importer/taggedpicture.h"

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

    void joinsBothFields()
    {
        TaggedPicture picture;
        picture.xmp = QStringList{QStringLiteral("Sea"), QStringLiteral("Cafe\u0301"), QStringLiteral("sea")};
        picture.iptc = {"Sky", " Sea ", "Caf\xc3\xa9", "", "  "};
        picture.write(path("both.jpg"));
        const MetadataAnswer answer = readKeywords(path("both.jpg"));
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
            QCOMPARE(readKeywords(path("name.jpg")).keywords, expected);
            writeSidecar(path("name.xmp"), expected);
            QCOMPARE(readKeywords(path("name.xmp")).keywords, expected);
            if (name.size() > 1000)  // An IPTC dataset holds 32 KiB.
                continue;
            TaggedPicture picture;
            picture.iptc = {name.toUtf8(), "other"};
            picture.write(path("name.jpg"));
            QCOMPARE(readKeywords(path("name.jpg")).keywords, expected);
        }
    }

    void readsUnusualXmp()
    {
        const auto read = [this](const QByteArray& element, const QByteArray& attribute = {}) -> QString {
            const QByteArray body = element.isEmpty() ? QByteArray() : "<dc:subject>" + element + "</dc:subject>";
            writeFile(path("unusual.xmp"),
                      "<x:xmpmeta xmlns:x='adobe:ns:meta/'>"
                      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
                      "<rdf:Description rdf:about='' xmlns:dc='http://purl.org/dc/elements/1.1/' " +
                          attribute + '>' + body + "</rdf:Description></rdf:RDF></x:xmpmeta>");
            const MetadataAnswer answer = readKeywords(path("unusual.xmp"));
            return answer.error + answer.keywords.join(QLatin1Char('|'));
        };
        QCOMPARE(read("<rdf:Seq><rdf:li>a, b</rdf:li><rdf:li>c</rdf:li></rdf:Seq>"), QStringLiteral("a, b|c"));
        QCOMPARE(read("<rdf:Alt><rdf:li xml:lang='x-default'>Sea</rdf:li></rdf:Alt>"), QStringLiteral("Sea"));
        QCOMPARE(read("a, b"), QStringLiteral("a, b"));
        QCOMPARE(read({}, "dc:subject='Sea'"), QStringLiteral("Sea"));
        QCOMPARE(read("<rdf:Bag/>"), QString());
        QCOMPARE(read("<rdf:Bag><rdf:li/><rdf:li> </rdf:li></rdf:Bag>"), QString());
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
            QVERIFY2(readKeywords(path("iptc.jpg")).keywords == QStringList{each.text}, each.title);
        }
    }

    void tellsWhyAFileCannotBeRead()
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
            const QStringList keywords = readKeywords(QFile::encodeName(name)).keywords;
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
