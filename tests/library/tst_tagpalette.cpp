// SPDX-License-Identifier: MIT
#include "host/library/records/tagpalette.h"

#include <QTest>

class TstTagPalette : public QObject
{
    Q_OBJECT

private slots:
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
