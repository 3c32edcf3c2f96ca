// SPDX-License-Identifier: MIT
#include "taglist/initialletter.h"
#include "taglist/mandarininitials.h"

#include <QMap>
#include <QtTest>

class InitialLetterTest : public QObject
{
    Q_OBJECT

private slots:
    void tableHasTheKnownCounts();
    void tableBeginsWithTheKnownRow();
    void keys_data();
    void keys();
    void surrogateStandsForItself();
};

void InitialLetterTest::tableHasTheKnownCounts()
{
    const QMap<char, int> expected{{'A', 162}, {'B', 771}, {'C', 1111}, {'D', 877},  {'E', 157},  {'F', 596},
                                   {'G', 715}, {'H', 985}, {'J', 1439}, {'K', 573},  {'L', 1548}, {'M', 798},
                                   {'N', 463}, {'O', 34},  {'P', 712},  {'Q', 1083}, {'R', 332},  {'S', 1316},
                                   {'T', 941}, {'U', 39},  {'W', 656},  {'X', 1467}, {'Y', 2161}, {'Z', 1966}};
    QMap<char, int> counted;
    for (const QChar letter : mandarinInitials())
        ++counted[letter.toLatin1()];
    QCOMPARE(counted, expected);
}

void InitialLetterTest::tableBeginsWithTheKnownRow()
{
    QCOMPARE(mandarinInitials().left(40), QStringLiteral("YDYQSXMWZSSXJBYMGCCZQPSSQBYCDSCDQLDYLYBS"));
    for (const ushort rare : {0x5C57, 0x5F9A, 0x658F, 0x66E2})
        QCOMPARE(mandarinInitials().at(rare - firstMandarinCodePoint), QChar('U'));
}

void InitialLetterTest::keys_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    const QVector<QPair<QString, QString>> rows{{{}, {}},
                                                {"apple", "A"},
                                                {"Apple", "A"},
                                                {"zoo", "Z"},
                                                {"9 lives", "9"},
                                                {"_draft", "_"},
                                                {"(old)", "("},
                                                {" blank", " "},
                                                {"~", "~"},
                                                {"`x", "`"},
                                                {"[x", "["},
                                                {"{x", "{"},
                                                {"@x", "@"},
                                                {"一二", "Y"},
                                                {"中国", "Z"},
                                                {"龥", "Y"},
                                                {"龤", "X"},
                                                {"偶", "O"},
                                                {"字", "Z"},
                                                {"㐀", "㐀"},
                                                {"鿦", "鿦"},
                                                {"龦", "龦"},
                                                {"é", "é"},
                                                {"über", "ü"},
                                                {"ａ", "ａ"},
                                                {"ねこ", "ね"},
                                                {"한국", "한"},
                                                {"\tx", "\t"},
                                                {"\u007fx", "\u007f"},
                                                {"\u4dff", "\u4dff"}};
    for (const auto& [name, key] : rows)
        QTest::newRow(qPrintable("'" + name + "'")) << name << key;
}

void InitialLetterTest::keys()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    QCOMPARE(initialLetter(name), key);
    QCOMPARE(initialLetter(name.left(1)), key);
}

void InitialLetterTest::surrogateStandsForItself()
{
    const QString emoji = QString::fromUtf8("😀 smile");
    QCOMPARE(initialLetter(emoji), emoji.left(1));
    QCOMPARE(initialLetter(QString(QChar(0xDC00))), QString(QChar(0xDC00)));
}

QTEST_APPLESS_MAIN(InitialLetterTest)
#include "tst_initialletter.moc"
