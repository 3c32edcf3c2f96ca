// SPDX-License-Identifier: MIT
#include "host/library/records/tagpalette.h"
#include "tests/support/contrast.h"

#include <QTest>

/// Whether everybody can read the chips, and whether tags keep their colours.
class TstTagPalette : public QObject
{
    Q_OBJECT

private slots:
    void entriesAndLookUpAgree()
    {
        const auto& entries = TagPalette::instance()->colorEntries();
        QCOMPARE(entries.size(), TagPalette::size);
        for (int i = 0; i < entries.size(); ++i) {
            QColor color;
            TagPalette::instance()->color(i, color);
            QVERIFY(color.isValid());
            QCOMPARE(color, QColor(entries.at(i).color));
            QCOMPARE(entries.at(i).index, i);
            QVERIFY(!entries.at(i).name.isEmpty());
        }
        QColor unknown;
        TagPalette::instance()->color(99, unknown);
        QCOMPARE(unknown, QColor(entries.first().color));
    }

    void whiteTextIsReadable()
    {
        for (const TagColorEntry& entry : TagPalette::instance()->colorEntries())
            QVERIFY2(contrast(Qt::white, QColor(entry.color)) >= 4.5, qPrintable(entry.name));
    }

    void keywordsKeepTheirColour()
    {
        // Libraries on other machines, and made by later versions, give the same keyword the same colour.
        QCOMPARE(TagPalette::indexForName(QStringLiteral("caf\u00e9")),
                 TagPalette::indexForName(QStringLiteral(" cafe\u0301")));
        const QVector<QPair<QString, int>> fixed = {
            {"sea", 0}, {"sky", 1}, {"Travel", 6}, {"family", 0}, {QStringLiteral("\u6c34\u58a8\u753b"), 2},
            {"2024", 2}};
        for (const auto& [name, color] : fixed)
            QCOMPARE(TagPalette::indexForName(name), color);
        QSet<int> used;
        for (int i = 0; i < 100; ++i)
            used.insert(TagPalette::indexForName(QStringLiteral("keyword %1").arg(i)));
        QCOMPARE(used.size(), TagPalette::size);
    }
};

QTEST_APPLESS_MAIN(TstTagPalette)

#include "tst_tagpalette.moc"
