// SPDX-License-Identifier: MIT
#include "host/library/records/escapedtext.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

class TestEscapedText : public QObject
{
    Q_OBJECT

private slots:
    void nothingHiddenReachesATerminal()
    {
        const QVector<QPair<QByteArray, QByteArray>> cases = {
            {"山 é 👍 \u0600 plain", "山 é 👍 \u0600 plain"},
            {"a\tb\nc\rd\\", R"(a\tb\nc\rd\\)"},
            {"\x1b[31m\x7f", R"(\x1b[31m\x7f)"},
            {"\u009b31m\u0085", R"(\u009b31m\u0085)"},
            {"\x9b\xff caf\xe9", R"(\x9b\xff caf\xe9)"},
            {"\u202egpj.\u2066\u200b\u200d\ufeff\u2028\u3164", R"(\u202egpj.\u2066\u200b\u200d\ufeff\u2028\u3164)"},
            {"\U000e0041", R"(\U000e0041)"},
            {"\xc0\x80\xed\xa0\x80\xf4\x90\x80\x80\xe5\xb1", R"(\xc0\x80\xed\xa0\x80\xf4\x90\x80\x80\xe5\xb1)"}};
        for (const auto& [text, escaped] : cases)
            QCOMPARE(escapedText(text), escaped);
    }

    void jsonKeepsItsMeaning()
    {
        const QString name = QStringLiteral("山 \u202e\u009b\U000e0041 \"end\n");
        const QByteArray json = escapedJson(QJsonDocument(QJsonObject{{"name", name}}).toJson());
        QVERIFY(json.contains("山 \\u202e\\u009b\\udb40\\udc41"));
        QCOMPARE(QJsonDocument::fromJson(json).object().value("name").toString(), name);
    }
};

QTEST_APPLESS_MAIN(TestEscapedText)
#include "tst_escapedtext.moc"
