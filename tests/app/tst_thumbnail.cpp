// SPDX-License-Identifier: MIT
#include "host/app/picturefile.h"
#include "host/app/thumbnail.h"
#include "host/app/thumbnailcache.h"
#include "host/app/thumbnailloader.h"
#include "tests/app/picturefolder.h"

#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>

/// What becomes of picture files of every kind, by their paths as bytes.
class TestThumbnail : public QObject
{
    Q_OBJECT

private slots:
    void picturesAreTurnedUpright()
    {
        struct Case
        {
            int orientation = 1;
            QSize size;
            QPoint red;
            QPoint blue;
        };
        for (const auto& [orientation, size, red, blue] :
             {Case{1, {64, 32}, {8, 16}, {56, 16}}, Case{3, {64, 32}, {56, 16}, {8, 16}},
              Case{6, {32, 64}, {16, 8}, {16, 56}}}) {
            const QByteArray path = m_folder.write("turned.jpg", PictureFolder::jpeg(QSize(640, 320), orientation));
            const Thumbnail thumbnail = ThumbnailCache(1'000'000).thumbnail(path, 64);
            QCOMPARE(thumbnail.state, Thumbnail::Loaded);
            QCOMPARE(thumbnail.image.size(), size);
            QVERIFY(thumbnail.image.pixelColor(red).red() > 200);
            QVERIFY(thumbnail.image.pixelColor(blue).blue() > 200);
        }
    }

    void sizesAndWhatIsNoPicture()
    {
        ThumbnailCache cache(1'000'000);
        QCOMPARE(cache.thumbnail(m_folder.writePng("tall.png", QSize(300, 600)), 128).image.size(), QSize(64, 128));
        QCOMPARE(cache.thumbnail(m_folder.writePng("thread.png", QSize(2000, 1)), 128).image.size(), QSize(128, 1));
        QCOMPARE(cache.thumbnail(m_folder.writePng("small.png", QSize(16, 12)), 128).image.size(), QSize(16, 12));
        QCOMPARE(cache.thumbnail(m_folder.writePng("small.png", QSize(30, 20)), 128).image.size(), QSize(30, 20));
        const QByteArray truncated = PictureFolder::jpeg(QSize(64, 64), 1).left(100);
        QCOMPARE(cache.thumbnail(m_folder.write("text.png", "no picture"), 64).state, Thumbnail::Unreadable);
        QCOMPARE(cache.thumbnail(m_folder.write("empty.png", {}), 64).state, Thumbnail::Unreadable);
        QCOMPARE(cache.thumbnail(m_folder.write("short.jpg", truncated), 64).state, Thumbnail::Unreadable);
        QCOMPARE(cache.thumbnail(m_folder.path("none.png"), 64).state, Thumbnail::Missing);
        QCOMPARE(cache.thumbnail(m_folder.path(), 64).state, Thumbnail::Missing);

        const QByteArray pipe = m_folder.path("pipe.png");
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        QCOMPARE(cache.thumbnail(pipe, 64).state, Thumbnail::Missing);
    }

    void namesMayBeAnyBytes()
    {
        const QByteArray path = m_folder.writePng("caf\xe9 \xff%41#?\n.png");
        ThumbnailCache cache(1'000'000);

        QCOMPARE(cache.thumbnail(path, 64).state, Thumbnail::Loaded);
        QVERIFY(PictureFile::isPicture(path));
        QCOMPARE(PictureFile::displayName(path), QStringLiteral("caf\ufffd \ufffd%41#?\n.png"));
        QVERIFY(PictureFile::url(path).isValid());
        QVERIFY(PictureFile::url(path).toEncoded().endsWith("/caf%E9%20%FF%2541%23%3F%0A.png"));
    }

    void onlyTheLatestWishIsLoaded()
    {
        QVector<ThumbnailRequest> first;
        for (int i = 1; i <= 100; ++i)
            first.append({i, m_folder.writePng("first" + QByteArray::number(i) + ".png")});
        const QByteArray last = m_folder.writePng("last.png");
        ThumbnailLoader loader;
        QSignalSpy loaded(&loader, &ThumbnailLoader::thumbnailLoaded);

        loader.setWanted(first, 64);
        loader.setWanted({{1000, last}}, 64);
        const auto hasLoaded = [&loaded](qint64 id) {
            return std::any_of(loaded.begin(), loaded.end(),
                               [id](const QList<QVariant>& call) { return call.at(0) == id; });
        };
        QTRY_VERIFY(hasLoaded(1000));
        QVERIFY(loaded.size() < first.size());
        QVERIFY(!hasLoaded(100));
    }

    void onlyPicturesAreOpenedByOtherPrograms()
    {
        QVERIFY(PictureFile::isPicture(m_folder.writePng("plain.png")));
        QVERIFY(PictureFile::isPicture(m_folder.write("photo.jpeg", PictureFolder::jpeg(QSize(8, 8), 1))));
        QVERIFY(!PictureFile::isPicture(m_folder.write("script.png", "#!/bin/sh\necho\n")));
        QVERIFY(!PictureFile::isPicture(m_folder.writePng("starter.desktop")));
        QVERIFY(!PictureFile::isPicture(m_folder.writePng("script.sh")));
        QVERIFY(!PictureFile::isPicture(m_folder.path("none.png")));
    }

private:
    PictureFolder m_folder;
};

QTEST_GUILESS_MAIN(TestThumbnail)
#include "tst_thumbnail.moc"
