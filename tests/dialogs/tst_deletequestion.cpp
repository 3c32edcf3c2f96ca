// SPDX-License-Identifier: MIT
#include "dialogs/deletequestion.h"
#include "widgets/plaintooltip.h"

#include <vlskinsetting.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QtTest>

namespace {
const QString question = QStringLiteral("The Tag<font color='%1'> %2 </font>has<font color='%3'> %4 </font>files\uFF0C"
                                        "delete?<font style='font-size:12px' color='%5'> (Remark.) </font>");

QString plainText(const QString& html)
{
    QTextDocument document;
    document.setHtml(html);
    return document.toPlainText();
}
}  // namespace

class TestDeleteQuestion : public QObject
{
    Q_OBJECT

private slots:
    void nameReadsAsTyped()
    {
        for (const QString& name :
             {QStringLiteral("<b>x</b>"), QStringLiteral("<a href=\"file:///etc/passwd\">x</a>"),
              QStringLiteral("%1 %2 %5 %n %L4"), QStringLiteral("&amp; & &lt;"), QStringLiteral("'><img src=x>"),
              QStringLiteral(" a  b\tc "), QString::fromUtf8("\u5C71\u6C34 \U0001F600")}) {
            const QString expected =
                QStringLiteral("The Tag ") + name + QStringLiteral(" has 7 files\uFF0Cdelete? (Remark.) ");
            QCOMPARE(plainText(fillDeleteQuestion(question, name, 7)).trimmed(), expected.trimmed());
            QCOMPARE(plainText(plainToolTip(name)), name);
        }
    }

    void directionOfTheSentenceHolds()
    {
        for (const QString& name :
             {QStringLiteral("x\u202Eabc"), QStringLiteral("\u2067a\u202Ebc"),
              QStringLiteral("\u202Ea\u202C\u202C\u2069\u2069\u202Ebc"), QStringLiteral("a\u202E\nb\u2029c")}) {
            QTextDocument document;
            document.setHtml(fillDeleteQuestion(question, name, 7));
            document.setTextWidth(10000);
            QVERIFY(document.size().isValid());  // Lays the text out.
            QCOMPARE(document.blockCount(), 1);
            const QTextBlock block = document.firstBlock();
            const int tail = block.text().indexOf(QLatin1String(" has"));
            const QTextLine line = block.layout()->lineForTextPosition(tail);
            for (int i = tail + 1; i < block.text().size() - 1; ++i)
                QVERIFY2(line.cursorToX(i + 1) > line.cursorToX(i), qPrintable(block.text().mid(i, 1)));
        }
    }

    void longNameIsShortenedToTheBody()
    {
        QFont font;
        font.setPixelSize(13);
        QTextDocument document;
        document.setDefaultFont(font);
        document.setDocumentMargin(0);
        for (const QString& name :
             {QString(2000, QLatin1Char('W')), QString(2000, QChar(0x5C71)),
              QString::fromUtf8("\U0001F600").repeated(1000), QStringLiteral("a\n").repeated(1000)}) {
            QVERIFY(isShortenedInQuestion(question, name, 7));
            document.setHtml(fillDeleteQuestion(question, name, 7));
            document.setTextWidth(300);
            QVERIFY(document.size().height() <= 70 && document.idealWidth() <= 300);
            const QString shown = document.toPlainText();
            QVERIFY(shown.contains(QChar(0x2026)) && shown.contains(QLatin1String("(Remark.)")));
            QCOMPARE(QString::fromUtf8(shown.toUtf8()), shown);
        }
    }
};

QTEST_MAIN(TestDeleteQuestion)
#include "tst_deletequestion.moc"
