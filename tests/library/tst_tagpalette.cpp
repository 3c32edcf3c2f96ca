// SPDX-License-Identifier: MIT
#include "host/library/records/tagpalette.h"
#include "tests/support/contrast.h"

#include <QTest>

#include <array>
#include <cmath>

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

/// Full deficiency, applied to linear RGB: G. M. Machado, M. M. Oliveira, L. A. F. Fernandes, "A Physiologically-based
/// Model for Simulation of Color Vision Deficiency", IEEE TVCG 15 (6), 2009, severity 1.0.
const Matrix Protanopia = {
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
const Matrix Deuteranopia = {
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
const Matrix Tritanopia = {
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};

Triple linearRgb(const QColor& color)
{
    return {linear(color.redF()), linear(color.greenF()), linear(color.blueF())};
}

Triple times(const Matrix& matrix, const Triple& color)
{
    Triple result{};
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column)
            result[row] += matrix[row][column] * color[column];
        result[row] = qBound(0.0, result[row], 1.0);
    }
    return result;
}

/// CIE 1976 L*a*b* under D65.
Triple lab(const Triple& c)
{
    const auto curve = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
    const double x = curve((0.4124 * c[0] + 0.3576 * c[1] + 0.1805 * c[2]) / 0.9505);
    const double y = curve(0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]);
    const double z = curve((0.0193 * c[0] + 0.1192 * c[1] + 0.9505 * c[2]) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double distance(const Triple& a, const Triple& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

}  // namespace

/// Whether everybody can read the chips and tell them apart.
class TstTagPalette : public QObject
{
    Q_OBJECT

private slots:
    void entriesAndLookUpAgree()
    {
        const auto& entries = TagPalette::instance()->colorEntries();
        QCOMPARE(entries.size(), TagPalette::Size);
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

    void neighboursStayApart()
    {
        // About ten times what the eye just tells apart (2.3 in this space).
        constexpr double SmallestDistance = 20;
        const auto& entries = TagPalette::instance()->colorEntries();
        for (const Matrix& vision : {Protanopia, Deuteranopia, Tritanopia}) {
            for (int i = 1; i < entries.size(); ++i) {
                const Triple before = lab(times(vision, linearRgb(QColor(entries.at(i - 1).color))));
                const Triple after = lab(times(vision, linearRgb(QColor(entries.at(i).color))));
                QVERIFY2(distance(before, after) >= SmallestDistance, qPrintable(entries.at(i).name));
            }
        }
    }

    void keywordsKeepTheirColour()
    {
        // Libraries on other machines, and made by later versions, give the same keyword the same colour.
        QCOMPARE(TagPalette::indexForName(QStringLiteral("caf\u00e9")),
                 TagPalette::indexForName(QStringLiteral(" cafe\u0301")));
        QSet<int> used;
        for (int i = 0; i < 100; ++i)
            used.insert(TagPalette::indexForName(QStringLiteral("keyword %1").arg(i)));
        QCOMPARE(used.size(), TagPalette::Size);
        QVERIFY(*std::min_element(used.cbegin(), used.cend()) == 0);
        QVERIFY(*std::max_element(used.cbegin(), used.cend()) == TagPalette::Size - 1);
    }
};

QTEST_APPLESS_MAIN(TstTagPalette)

#include "tst_tagpalette.moc"
