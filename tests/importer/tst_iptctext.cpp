// SPDX-License-Identifier: MIT
#include "host/importer/iptctext.h"

#include <QtTest>

class TestIptcText : public QObject
{
    Q_OBJECT

private slots:
    void decodes_data();
    void decodes();
};

void TestIptcText::decodes_data()
{
    QTest::addColumn<QByteArray>("characterSet");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("utf-8 declared") << QByteArray("\x1b%G") << QByteArray("\xe5\xb1\xb1") << QStringLiteral("山");
    QTest::newRow("utf-8 level 3 declared")
        << QByteArray("\x1b%/I") << QByteArray("\xe5\xb1\xb1") << QStringLiteral("山");
    QTest::newRow("declared but not so") << QByteArray("\x1b%G") << QByteArray("caf\xe9") << QStringLiteral("café");
    QTest::newRow("latin-1, though valid utf-8")
        << QByteArray("\x1b.A") << QByteArray("\xc3\xa9") << QStringLiteral("Ã©");
    QTest::newRow("latin-1 in the right half")
        << QByteArray("\x1b-A") << QByteArray("\xe9t\xe9") << QStringLiteral("été");
    QTest::newRow("latin-2") << QByteArray("\x1b.B") << QByteArray("\xb1\xe8") << QStringLiteral("ąč");
    QTest::newRow("cyrillic") << QByteArray("\x1b.L") << QByteArray("\xb3\xde\xe0\xeb") << QStringLiteral("Горы");
    QTest::newRow("chinese") << QByteArray("\x1b$)A") << QByteArray("\xc9\xbd") << QStringLiteral("山");
    QTest::newRow("unknown sequence") << QByteArray("\x1b%5") << QByteArray("\xe5\xb1\xb1") << QStringLiteral("山");
    QTest::newRow("no sequence") << QByteArray("UTF-8") << QByteArray("\xe5\xb1\xb1") << QStringLiteral("山");
    QTest::newRow("none, valid utf-8") << QByteArray() << QByteArray("\xc3\xa9") << QStringLiteral("é");
    QTest::newRow("none, not utf-8") << QByteArray() << QByteArray("Se\xf1or") << QStringLiteral("Señor");
    QTest::newRow("none, cut utf-8") << QByteArray() << QByteArray("a\xc3") << QStringLiteral("aÃ");
    QTest::newRow("windows quotes") << QByteArray() << QByteArray("\x93hi\x94") << QStringLiteral("“hi”");
    QTest::newRow("empty") << QByteArray("\x1b%G") << QByteArray() << QString();
}

void TestIptcText::decodes()
{
    QFETCH(QByteArray, characterSet);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QCOMPARE(decodeIptcText(bytes, characterSet), text);
}

QTEST_APPLESS_MAIN(TestIptcText)
#include "tst_iptctext.moc"
