// SPDX-License-Identifier: MIT
#include "taglist/initialletter.h"
#include "taglist/mandarininitials.h"

#include <QMap>
#include <QtTest>

class InitialLetterTest : public QObject
{
    Q_OBJECT

private slots:
    void tableHasTheKnownCounts()
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

    void tableBeginsWithTheKnownRow()
    {
        QCOMPARE(mandarinInitials().left(40), QStringLiteral("YDYQSXMWZSSXJBYMGCCZQPSSQBYCDSCDQLDYLYBS"));
        for (const ushort rare : {0x5C57, 0x5F9A, 0x658F, 0x66E2})
            QCOMPARE(mandarinInitials().at(rare - firstMandarinCodePoint), QChar('U'));
    }

    void keys_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("key");
        const QVector<QPair<QString, QString>> rows{
            {{}, {}},     {"apple", "A"}, {"9 lives", "9"}, {" blank", " "},       {"[x", "["},
            {"{x", "{"},  {"@x", "@"},    {"一二", "Y"},    {"中国", "Z"},         {"龥", "Y"},
            {"龤", "X"},  {"㐀", "㐀"},   {"鿦", "鿦"},   {"龦", "龦"},          {"é", "é"},
            {"ａ", "ａ"}, {"ねこ", "ね"}, {"한국", "한"},   {"\u007fx", "\u007f"}, {"\u4dff", "\u4dff"}};
        const QString emoji = QString::fromUtf8("😀 smile");
        QTest::newRow("half of a pair") << emoji << QString(emoji.at(0));
        for (const auto& [name, key] : rows)
            QTest::newRow(qPrintable("'" + name + "'")) << name << key;
    }

    void keys()
    {
        QFETCH(QString, name);
        QFETCH(QString, key);
        QCOMPARE(initialLetter(name), key);
        QCOMPARE(initialLetter(name.mid(0, 1)), key);
    }
};

QTEST_APPLESS_MAIN(InitialLetterTest)
#include "tst_initialletter.moc"
