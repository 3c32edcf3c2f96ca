// SPDX-License-Identifier: MIT
#include "host/app/files/thumbnailloader.h"
#include "tests/app/picturefolder.h"
#include "tests/importer/readermain.h"
#include "tests/importer/taggedpicture.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>

namespace {

QByteArray encoded(const char* format)
{
    const QImage image(QStringLiteral(VELLUM_SAMPLES "/Design/Marks.png"));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.scaled(48, 48).save(&buffer, format);
    return buffer.data();
}

}  // namespace

/// Garbles a picture of each format that is decoded and has thumbnails made: every one must be answered, and this
/// process must live. With VELLUM_LONG_TESTS set, some hundred times as many. VELLUM_TEST_SEED sets the seed.
class TestDamagedThumbnails : public QObject
{
    Q_OBJECT

private slots:
    void everyOneIsAnswered_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("whole");
        for (const char* const format : {"jpg", "png", "bmp", "ico", "ppm", "pgm", "pbm", "xpm", "xbm"})
            QTest::newRow(format) << QByteArray("a.").append(format) << encoded(format);
        QTest::newRow("gif") << QByteArray("a.gif")
                             << QByteArray(
                                    "GIF89a\4\0\4\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\4\0\4\0\0\2\4\x84\x8f\x09\5\0;",
                                    37);
        QTest::newRow("tga") << QByteArray("a.tga")
                             << QByteArray("\0\0\2\0\0\0\0\0\0\0\0\0\4\0\4\0\x18\0", 18) + QByteArray(48, 'x') +
                                    QByteArray(8, '\0') + QByteArray("TRUEVISION-XFILE.", 18);
        QTest::newRow("svg") << QByteArray("a.svg") << fileBytes(VELLUM_DRAWING);
        for (const char* const sample : {"Design/Fans.tif", "Everyday/Shoal.webp"})
            QTest::newRow(sample) << QByteArray(sample).replace('/', '-')
                                  << fileBytes(QByteArray(VELLUM_SAMPLES "/") + sample);
    }

    void everyOneIsAnswered()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const QByteArray, whole);
        QVERIFY(!whole.isEmpty());
        const bool isLong = qEnvironmentVariableIntValue("VELLUM_LONG_TESTS") > 0;
        const int count = isLong ? 10'000 : 100;
        QRandomGenerator random(quint32(qEnvironmentVariableIntValue("VELLUM_TEST_SEED")));
        QVector<ThumbnailRequest> requests;
        for (int i = 0; i < count; ++i) {
            // The first one is whole.
            const QByteArray bytes = i == 0 ? whole : garbled(whole, i % 2 == 0, random);
            requests.append({i, m_folder.write(QByteArray::number(i) + name, bytes)});
        }
        ThumbnailLoader loader;
        QMap<int, int> states;
        Thumbnail::State first = Thumbnail::Pending;
        int answered = 0;
        connect(&loader, &ThumbnailLoader::thumbnailLoaded, &loader, [&](qint64 id, int, const Thumbnail& thumbnail) {
            ++answered;
            ++states[thumbnail.state];
            if (id == 0)
                first = thumbnail.state;
        });
        loader.setWanted(requests, 64);
        QTRY_COMPARE_WITH_TIMEOUT(answered, count, 60000 + 100 * count);
        QCOMPARE(first, Thumbnail::Loaded);
        qInfo("%d pictures: %d shown, %d refused", count, states[Thumbnail::Loaded], states[Thumbnail::Unreadable]);
    }

private:
    PictureFolder m_folder;
};

READER_TEST_MAIN(TestDamagedThumbnails)
#include "tst_damagedthumbnails.moc"
